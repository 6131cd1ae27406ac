// The TERRIX extension: it starts `terrix lsp` (the setting terrix.path
// names the program) and speaks the Language Server Protocol with it over
// its standard input and output: the texts the editor opens and changes go
// to the server, its diagnostics, hovers, outline, formatting and fixes come
// back. It needs nothing but VS Code and the terrix program.

const { spawn } = require('child_process');
const vscode = require('vscode');

const selector = { language: 'terrix' };

// JSON-RPC over a child's pipes: each message a "Content-Length" header and
// its JSON.
class Connection {
  constructor(program, args, onNotification, onExit) {
    this.child = spawn(program, args, { stdio: ['pipe', 'pipe', 'inherit'] });
    this.pending = new Map();
    this.nextId = 1;
    this.buffer = Buffer.alloc(0);
    this.child.stdout.on('data', (chunk) => this.receive(chunk, onNotification));
    this.closing = false;
    this.child.on('error', onExit);
    this.child.on('exit', (code) => {
      if (!this.closing) onExit(new Error(`terrix lsp ended with status ${code}`));
    });
  }

  receive(chunk, onNotification) {
    this.buffer = Buffer.concat([this.buffer, chunk]);
    for (;;) {
      const end = this.buffer.indexOf('\r\n\r\n');
      if (end < 0) return;
      const length = Number(/Content-Length: (\d+)/i.exec(this.buffer.subarray(0, end).toString())[1]);
      if (this.buffer.length < end + 4 + length) return;
      const message = JSON.parse(this.buffer.subarray(end + 4, end + 4 + length).toString('utf8'));
      this.buffer = this.buffer.subarray(end + 4 + length);
      const waiting = 'id' in message && this.pending.get(message.id);
      if (waiting) {
        this.pending.delete(message.id);
        if (message.error) waiting.reject(new Error(message.error.message));
        else waiting.resolve(message.result);
      } else if (message.method) {
        onNotification(message.method, message.params);
      }
    }
  }

  send(message) {
    const body = Buffer.from(JSON.stringify({ jsonrpc: '2.0', ...message }), 'utf8');
    this.child.stdin.write(`Content-Length: ${body.length}\r\n\r\n`);
    this.child.stdin.write(body);
  }

  request(method, params) {
    const id = this.nextId++;
    return new Promise((resolve, reject) => {
      this.pending.set(id, { resolve, reject });
      this.send({ id, method, params });
    });
  }

  notify(method, params) {
    this.send({ method, params });
  }
}

const toRange = (range) =>
  new vscode.Range(range.start.line, range.start.character, range.end.line, range.end.character);
const fromPosition = (position) => ({ line: position.line, character: position.character });
const fromRange = (range) => ({ start: fromPosition(range.start), end: fromPosition(range.end) });
const textDocument = (document) => ({ uri: document.uri.toString() });

function toDiagnostic(diagnostic) {
  const severity = diagnostic.severity === 1 ? vscode.DiagnosticSeverity.Error : vscode.DiagnosticSeverity.Warning;
  const converted = new vscode.Diagnostic(toRange(diagnostic.range), diagnostic.message, severity);
  converted.source = diagnostic.source;
  return converted;
}

// The protocol's kinds of symbol count from 1, VS Code's from 0.
function toSymbol(symbol) {
  const converted = new vscode.DocumentSymbol(symbol.name, symbol.detail || '', symbol.kind - 1,
    toRange(symbol.range), toRange(symbol.selectionRange));
  converted.children = (symbol.children || []).map(toSymbol);
  return converted;
}

const toEdits = (edits) => (edits || []).map((edit) => vscode.TextEdit.replace(toRange(edit.range), edit.newText));

function toAction(action) {
  const converted = new vscode.CodeAction(action.title, vscode.CodeActionKind.QuickFix);
  converted.isPreferred = action.isPreferred;
  converted.diagnostics = (action.diagnostics || []).map(toDiagnostic);
  converted.edit = new vscode.WorkspaceEdit();
  for (const [uri, edits] of Object.entries(action.edit.changes)) converted.edit.set(vscode.Uri.parse(uri), toEdits(edits));
  return converted;
}

let connection;

async function activate(context) {
  const settings = () => vscode.workspace.getConfiguration('terrix');
  const diagnostics = vscode.languages.createDiagnosticCollection('terrix');
  connection = new Connection(settings().get('path'), ['lsp'], (method, params) => {
    if (method === 'textDocument/publishDiagnostics')
      diagnostics.set(vscode.Uri.parse(params.uri), params.diagnostics.map(toDiagnostic));
    else if (method === 'window/showMessage')
      (params.type === 1 ? vscode.window.showErrorMessage : vscode.window.showWarningMessage)(params.message);
  }, (error) => vscode.window.showErrorMessage(`TERRIX: ${error.message}`));
  await connection.request('initialize', {
    processId: process.pid,
    capabilities: {},
    initializationOptions: { units: settings().get('units') },
  });
  connection.notify('initialized', {});

  const open = (document) => {
    if (document.languageId !== 'terrix') return;
    connection.notify('textDocument/didOpen', {
      textDocument: { uri: document.uri.toString(), languageId: 'terrix', version: document.version, text: document.getText() },
    });
  };
  vscode.workspace.textDocuments.forEach(open);
  context.subscriptions.push(
    diagnostics,
    vscode.workspace.onDidOpenTextDocument(open),
    vscode.workspace.onDidChangeTextDocument((event) => {
      if (event.document.languageId !== 'terrix' || event.contentChanges.length === 0) return;
      connection.notify('textDocument/didChange', {
        textDocument: { uri: event.document.uri.toString(), version: event.document.version },
        contentChanges: event.contentChanges.map((change) => ({ range: fromRange(change.range), text: change.text })),
      });
    }),
    vscode.workspace.onDidCloseTextDocument((document) => {
      if (document.languageId === 'terrix') connection.notify('textDocument/didClose', { textDocument: textDocument(document) });
    }),
    vscode.workspace.onDidChangeConfiguration((event) => {
      if (event.affectsConfiguration('terrix.units'))
        connection.notify('workspace/didChangeConfiguration', { settings: { terrix: { units: settings().get('units') } } });
    }),
    vscode.languages.registerHoverProvider(selector, {
      async provideHover(document, position) {
        const hover = await connection.request('textDocument/hover', { textDocument: textDocument(document), position: fromPosition(position) });
        return hover ? new vscode.Hover(new vscode.MarkdownString(hover.contents.value)) : null;
      },
    }),
    vscode.languages.registerDocumentSymbolProvider(selector, {
      async provideDocumentSymbols(document) {
        return (await connection.request('textDocument/documentSymbol', { textDocument: textDocument(document) })).map(toSymbol);
      },
    }),
    vscode.languages.registerDocumentFormattingEditProvider(selector, {
      async provideDocumentFormattingEdits(document, options) {
        return toEdits(await connection.request('textDocument/formatting', {
          textDocument: textDocument(document), options: { tabSize: options.tabSize, insertSpaces: options.insertSpaces },
        }));
      },
    }),
    vscode.languages.registerCodeActionsProvider(selector, {
      async provideCodeActions(document, range) {
        const actions = await connection.request('textDocument/codeAction', {
          textDocument: textDocument(document), range: fromRange(range), context: { diagnostics: [] },
        });
        return actions.map(toAction);
      },
    }, { providedCodeActionKinds: [vscode.CodeActionKind.QuickFix] }),
  );
}

async function deactivate() {
  if (!connection) return;
  connection.closing = true;
  await connection.request('shutdown', null);
  connection.notify('exit', null);
}

module.exports = { activate, deactivate };
