// The TextMate grammar as VS Code runs it (vscode-textmate on the Oniguruma
// of vscode-oniguruma), on the bundled examples. What each line holds is
// told by the library, through the JSON of terrix dump: its header lines,
// its sections' titles and its parameters' names must be coloured as such;
// the lines of expected.json are checked token by token.
//
// Run: TERRIX_TOOL=path/to/terrix TERRIX_SOURCE_DIR=. node --test editors/vscode/test/

const assert = require('node:assert');
const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');

const vsctm = require('vscode-textmate');
const oniguruma = require('vscode-oniguruma');

const sourceDir = process.env.TERRIX_SOURCE_DIR || path.join(__dirname, '..', '..', '..');
const terrix = process.env.TERRIX_TOOL || 'terrix';
const examplesDir = path.join(sourceDir, 'examples');
const examples = fs.readdirSync(examplesDir).filter((name) => name.endsWith('.terrix'));

async function loadGrammar() {
  const wasm = fs.readFileSync(require.resolve('vscode-oniguruma/release/onig.wasm'));
  await oniguruma.loadWASM(wasm.buffer.slice(wasm.byteOffset, wasm.byteOffset + wasm.byteLength));
  const registry = new vsctm.Registry({
    onigLib: Promise.resolve({
      createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
      createOnigString: (text) => new oniguruma.OnigString(text),
    }),
    loadGrammar: async () => {
      const file = path.join(__dirname, '..', 'syntaxes', 'terrix.tmLanguage.json');
      return vsctm.parseRawGrammar(fs.readFileSync(file, 'utf8'), file);
    },
  });
  return registry.loadGrammar('source.terrix');
}

// Each line of a text as its tokens: [{text, scopes}].
function tokenize(grammar, text) {
  let state = vsctm.INITIAL;
  return text.split(/\r\n|\r|\n/).map((line) => {
    const result = grammar.tokenizeLine(line, state);
    state = result.ruleStack;
    return result.tokens.map((token) => ({
      text: line.substring(token.startIndex, token.endIndex),
      scopes: token.scopes,
    }));
  });
}

const scopeOf = (token) => token.scopes[token.scopes.length - 1];
const has = (token, scope) => token.scopes.some((name) => name.startsWith(scope));

const grammarPromise = loadGrammar();

for (const example of examples) {
  test(`${example}: header lines, titles and parameter names as the library reads them`, async () => {
    const grammar = await grammarPromise;
    const file = path.join(examplesDir, example);
    const lines = tokenize(grammar, fs.readFileSync(file, 'utf8'));
    const dump = JSON.parse(execFileSync(terrix, ['dump', file], { encoding: 'utf8' }));
    const tokens = lines.flat();
    for (const profile of dump.profiles) {
      for (const headerLine of profile.header.split('\n').filter((line) => line.trim() !== '')) {
        const line = lines.find((candidate) => candidate.map((t) => t.text).join('') === headerLine);
        assert.ok(line, `header line '${headerLine}' not found`);
        assert.ok(line.every((t) => has(t, 'string.unquoted.header')), `header line '${headerLine}': ${JSON.stringify(line)}`);
      }
      for (const [title, section] of Object.entries(profile.sections)) {
        assert.ok(tokens.some((t) => t.text === title && has(t, 'entity.name.section')), `title '${title}'`);
        for (const name of Object.keys(section).filter((key) => /^[A-Z][A-Z0-9]*$/.test(key) && section[key] !== null)) {
          assert.ok(tokens.some((t) => t.text === name && has(t, 'variable.parameter')), `parameter ${name} of ${title}`);
        }
      }
    }
    assert.ok(has(lines[0][0], 'keyword.other'), 'the first line TERRIX');
  });
}

test('the lines of expected.json, token by token', async () => {
  const grammar = await grammarPromise;
  const cases = JSON.parse(fs.readFileSync(path.join(__dirname, 'expected.json'), 'utf8'));
  for (const { file, line, tokens } of cases) {
    const lines = tokenize(grammar, fs.readFileSync(path.join(sourceDir, file), 'utf8'));
    const got = lines[line - 1].filter((t) => t.text.trim() !== '').map((t) => [t.text.trim(), scopeOf(t)]);
    assert.deepStrictEqual(got, tokens, `${file}:${line}`);
  }
});
