#!/usr/bin/env python3
"""Drives `terrix lsp` over pipes as an editor does, one case file at a time.

A case (tests/cases/lsp/NAME.json) is data: the text an editor opens, the
messages it sends, and the messages it must get back, exactly.

  "document":  the text opened as file:///NAME.terrix: {"file": PATH of the
               repository, "replace": [[FROM, TO], ...] (each FROM once),
               "insert": {"beforeLine": N, "repeat": TEXT, "times": K, "end": TEXT}}:
               K times TEXT, then "end", before line N
  "initialize": params of initialize merged over {"capabilities": {}};
               null: no initialize is sent
  "diagnostics": those published for the opened text (exact)
  "steps": [{"request"|"notify": {"method": ..., "params": ...}, or
             "raw": bytes as a string of code points 0-255, or
             "rawBody": {"repeat": TEXT, "times": K}: a message of K times TEXT,
             "expect": [MESSAGE, ...] in order,
             "diffOfEditsFinds": "nothing" (apply the returned edits, then
                                   terrix diff the two texts)}]
  "end": "shutdown" (default: shutdown, exit, status 0) or "exit" (exit
         alone: status 1) or "close" (the input closed: status 0 after
         shutdown, else 1)
  "args": further arguments of terrix lsp.

"$uri" in any message stands for the document's URI; a response expected
without an "id" gets the id of its request. Every message is checked to be
JSON-RPC 2.0 and nothing else may stand on standard output. The time from
opening to diagnostics and the server's peak memory are printed.

Usage: run_cases.py TERRIX SOURCE_DIR CASE.json...
"""

import json
import os
import select
import subprocess
import sys
import tempfile
import time

TIMEOUT = 60


class Server:
    def __init__(self, terrix, args):
        self.process = subprocess.Popen([terrix, "lsp"] + args, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE)
        self.buffer = b""

    def send_bytes(self, data):
        self.process.stdin.write(data)
        self.process.stdin.flush()

    def send(self, message):
        body = json.dumps(dict(message, jsonrpc="2.0")).encode()
        self.send_bytes(b"Content-Length: %d\r\n\r\n" % len(body) + body)

    def _fill(self, deadline):
        ready, _, _ = select.select([self.process.stdout], [], [], max(0.0, deadline - time.time()))
        if not ready:
            raise AssertionError("no answer within %d s" % TIMEOUT)
        chunk = os.read(self.process.stdout.fileno(), 1 << 20)
        if not chunk:
            raise AssertionError("the server closed its output; standard error:\n" +
                                 self.process.stderr.read().decode(errors="replace"))
        self.buffer += chunk

    def receive(self):
        deadline = time.time() + TIMEOUT
        while b"\r\n\r\n" not in self.buffer:
            self._fill(deadline)
        header, self.buffer = self.buffer.split(b"\r\n\r\n", 1)
        assert header.startswith(b"Content-Length: ") and header[16:].isdigit(), "not a message header: %r" % header
        length = int(header[16:])
        while len(self.buffer) < length:
            self._fill(deadline)
        body, self.buffer = self.buffer[:length], self.buffer[length:]
        message = json.loads(body)
        assert message.pop("jsonrpc", None) == "2.0", "not JSON-RPC 2.0: %s" % body[:200]
        return message

    def peak_memory_mb(self):
        try:
            with open("/proc/%d/status" % self.process.pid) as status:
                for line in status:
                    if line.startswith("VmHWM:"):
                        return int(line.split()[1]) / 1024
        except OSError:
            pass
        return None


def substituted(value, uri):
    if isinstance(value, str):
        return uri if value == "$uri" else value
    if isinstance(value, list):
        return [substituted(item, uri) for item in value]
    if isinstance(value, dict):
        return {substituted(key, uri): substituted(item, uri) for key, item in value.items()}
    return value


def document_text(document, source_dir):
    with open(os.path.join(source_dir, document["file"]), encoding="utf-8", newline="") as file:
        text = file.read()
    for old, new in document.get("replace", []):
        assert text.count(old) == 1, "%r stands %d times in %s" % (old, text.count(old), document["file"])
        text = text.replace(old, new)
    if "insert" in document:
        insert = document["insert"]
        lines = text.splitlines(keepends=True)
        at = insert["beforeLine"] - 1
        lines[at:at] = [insert["repeat"] * insert.get("times", 1) + insert.get("end", "")]
        text = "".join(lines)
    return text


def applied(text, edits):
    """The text with the protocol's edits applied (UTF-16 = code points here: the texts are ASCII)."""
    lines = text.splitlines(keepends=True)
    starts = [0]
    for line in lines:
        starts.append(starts[-1] + len(line))

    def offset(position):
        return starts[min(position["line"], len(lines))] + position["character"]

    for edit in sorted(edits, key=lambda e: offset(e["range"]["start"]), reverse=True):
        text = text[:offset(edit["range"]["start"])] + edit["newText"] + text[offset(edit["range"]["end"]):]
    return text


def expect_messages(server, expected, request_id):
    for want in expected:
        got = server.receive()
        if "id" not in want and ("result" in want or "error" in want):
            want = dict(want, id=request_id)
        if got != want:
            raise AssertionError("expected\n  %s\ngot\n  %s" % (json.dumps(want), json.dumps(got)))
        last = got
    return last if expected else None


def run_case(terrix, source_dir, path):
    with open(path, encoding="utf-8") as file:
        case = json.load(file)
    name = os.path.splitext(os.path.basename(path))[0]
    uri = "file:///%s.terrix" % name
    case = substituted(case, uri)
    server = Server(terrix, case.get("args", []))
    try:
        if case.get("initialize", {}) is not None:
            server.send({"id": 0, "method": "initialize", "params": dict({"capabilities": {}}, **case.get("initialize", {}))})
            answer = server.receive()
            assert "capabilities" in answer.get("result", {}), "initialize: %s" % answer
            server.send({"method": "initialized", "params": {}})
        text = None
        if "document" in case:
            text = document_text(case["document"], source_dir)
            started = time.time()
            server.send({"method": "textDocument/didOpen", "params": {"textDocument": {
                "uri": uri, "languageId": "terrix", "version": 1, "text": text}}})
            published = server.receive()
            seconds = time.time() - started
            print("  %s: %d lines, diagnostics after %.3f s" % (name, text.count("\n"), seconds))
            want = {"method": "textDocument/publishDiagnostics",
                    "params": {"uri": uri, "diagnostics": case.get("diagnostics", [])}}
            if published != want:
                raise AssertionError("diagnostics: expected\n  %s\ngot\n  %s" % (json.dumps(want), json.dumps(published)))
        for number, step in enumerate(case.get("steps", []), start=1):
            request_id = number
            if "request" in step:
                server.send(dict(step["request"], id=request_id))
            elif "notify" in step:
                server.send(step["notify"])
            elif "rawBody" in step:
                body = step["rawBody"]["repeat"].encode("latin-1") * step["rawBody"]["times"]
                server.send_bytes(b"Content-Length: %d\r\n\r\n" % len(body) + body)
            else:
                server.send_bytes(step["raw"].encode("latin-1"))
            try:
                answer = expect_messages(server, step.get("expect", []), request_id)
            except AssertionError as failure:
                raise AssertionError("step %d: %s" % (number, failure))
            if step.get("diffOfEditsFinds") == "nothing":
                check_diff(terrix, text, applied(text, answer["result"]))
        end = case.get("end", "shutdown")
        if end == "shutdown":
            server.send({"id": "end", "method": "shutdown"})
            assert server.receive() == {"id": "end", "result": None}
        memory = server.peak_memory_mb()
        if memory is not None:
            print("  %s: peak memory %.0f MB" % (name, memory))
        if end != "close":
            server.send({"method": "exit"})
        server.process.stdin.close()
        status = server.process.wait(timeout=TIMEOUT)
        rest = server.process.stdout.read()
        assert server.buffer + rest == b"", "after exit, standard output holds %r" % (server.buffer + rest)[:200]
        wanted = 0 if end in ("shutdown",) else 1
        assert status == wanted, "exit status %d, expected %d" % (status, wanted)
    finally:
        if server.process.poll() is None:
            server.process.kill()
            server.process.wait()


def check_diff(terrix, before, after):
    assert before != after, "the edits changed nothing"
    with tempfile.TemporaryDirectory() as folder:
        paths = []
        for label, text in (("before", before), ("after", after)):
            paths.append(os.path.join(folder, label + ".terrix"))
            with open(paths[-1], "w", encoding="utf-8", newline="") as file:
                file.write(text)
        diff = subprocess.run([terrix, "diff"] + paths, capture_output=True, text=True)
        assert diff.returncode == 0, "terrix diff finds:\n" + diff.stdout + diff.stderr


def main():
    terrix, source_dir, cases = sys.argv[1], sys.argv[2], sys.argv[3:]
    failed = 0
    for path in cases:
        try:
            run_case(terrix, source_dir, path)
            print("PASS %s" % os.path.basename(path))
        except Exception as failure:  # one case's failure is reported, the others still run
            failed += 1
            print("FAIL %s: %s" % (os.path.basename(path), failure))
    print("%d passed, %d failed" % (len(cases) - failed, failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
