// The extension's client against the real `terrix lsp`, with VS Code's API
// stood in for by the little of it the extension uses: an example with an
// import error is opened, and its diagnostic, a hover and the fix of a
// finding arrive through the extension as VS Code would show them.
//
// Run: TERRIX_TOOL=path/to/terrix TERRIX_SOURCE_DIR=. node --test editors/vscode/test/

const assert = require('node:assert');
const fs = require('node:fs');
const Module = require('node:module');
const path = require('node:path');
const { test } = require('node:test');

const sourceDir = process.env.TERRIX_SOURCE_DIR || path.join(__dirname, '..', '..', '..');

// VS Code's API, as far as the extension uses it.
function fakeVscode(documents) {
  const seen = { diagnostics: new Map(), providers: {}, messages: [] };
  class Range {
    constructor(startLine, startCharacter, endLine, endCharacter) {
      this.start = { line: startLine, character: startCharacter };
      this.end = { line: endLine, character: endCharacter };
    }
  }
  const registered = (name) => (selectorOrProvider, provider) => {
    seen.providers[name] = provider || selectorOrProvider;
    return { dispose() {} };
  };
  const event = () => () => ({ dispose() {} });
  const api = {
    Range,
    Diagnostic: class { constructor(range, message, severity) { Object.assign(this, { range, message, severity }); } },
    DiagnosticSeverity: { Error: 0, Warning: 1 },
    Hover: class { constructor(contents) { this.contents = contents; } },
    MarkdownString: class { constructor(value) { this.value = value; } },
    DocumentSymbol: class { constructor(name, detail, kind, range, selectionRange) { Object.assign(this, { name, kind, range }); } },
    TextEdit: { replace: (range, newText) => ({ range, newText }) },
    CodeAction: class { constructor(title, kind) { Object.assign(this, { title, kind }); } },
    CodeActionKind: { QuickFix: 'quickfix' },
    WorkspaceEdit: class { constructor() { this.changes = {}; } set(uri, edits) { this.changes[uri.text] = edits; } },
    Uri: { parse: (text) => ({ text }) },
    window: {
      showErrorMessage: (message) => seen.messages.push(message),
      showWarningMessage: (message) => seen.messages.push(message),
    },
    workspace: {
      getConfiguration: () => ({ get: (key) => ({ path: process.env.TERRIX_TOOL || 'terrix', units: '' })[key] }),
      textDocuments: documents,
      onDidOpenTextDocument: event(), onDidChangeTextDocument: event(), onDidCloseTextDocument: event(),
      onDidChangeConfiguration: event(),
    },
    languages: {
      createDiagnosticCollection: () => ({ set: (uri, list) => seen.diagnostics.set(uri.text, list), dispose() {} }),
      registerHoverProvider: registered('hover'),
      registerDocumentSymbolProvider: registered('symbols'),
      registerDocumentFormattingEditProvider: registered('formatting'),
      registerCodeActionsProvider: registered('codeActions'),
    },
  };
  return { api, seen };
}

function loadExtension(api) {
  const resolve = Module._resolveFilename;
  Module._resolveFilename = function (request, ...rest) {
    return request === 'vscode' ? 'vscode' : resolve.call(this, request, ...rest);
  };
  require.cache.vscode = { id: 'vscode', filename: 'vscode', loaded: true, exports: api };
  return require('../extension.js');
}

async function until(condition) {
  for (let i = 0; i < 600 && !condition(); ++i) await new Promise((done) => setTimeout(done, 50));
  assert.ok(condition(), 'no answer within 30 s');
}

test('diagnostics, hover and a fix arrive through the extension', async () => {
  const text = fs.readFileSync(path.join(sourceDir, 'tests/cases/strict/count-disagrees-with-its-table.terrix'), 'utf8');
  const uri = 'file:///count.terrix';
  const document = { uri: { toString: () => uri }, languageId: 'terrix', version: 1, getText: () => text };
  const { api, seen } = fakeVscode([document]);
  const extension = loadExtension(api);
  await extension.activate({ subscriptions: [] });

  await until(() => seen.diagnostics.has(uri));
  const [diagnostic] = seen.diagnostics.get(uri);
  assert.strictEqual(diagnostic.message, 'NUMLAY is 9 but the layer divisions cover 10 layers');
  assert.deepStrictEqual(diagnostic.range, new api.Range(9, 0, 9, 40));
  assert.strictEqual(diagnostic.severity, api.DiagnosticSeverity.Error);

  const hover = await seen.providers.hover.provideHover(document, { line: 9, character: 9 });
  assert.match(hover.contents.value, /parameter `NUMLAY`/);

  const [fix] = await seen.providers.codeActions.provideCodeActions(document, new api.Range(9, 0, 9, 0));
  assert.strictEqual(fix.title, 'Set NUMLAY to 10');
  assert.deepStrictEqual(fix.edit.changes[uri], [{ range: new api.Range(9, 0, 10, 0), newText: '        10 NUMLAY  NUMBER OF SOIL LAYERS\n' }]);

  const symbols = await seen.providers.symbols.provideDocumentSymbols(document);
  assert.strictEqual(symbols[0].name, 'CONTROL SECTION');

  await extension.deactivate();
  await new Promise((done) => setTimeout(done, 500));  // the server's exit, which is no error
  assert.deepStrictEqual(seen.messages, []);
});
