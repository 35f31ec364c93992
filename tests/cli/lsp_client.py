"""A client of ppword lsp for its tests: one message after the other, in bytes."""

import json
import subprocess

import program

URI = "file:///mill.pptable"


def framed(content):
    data = content if isinstance(content, bytes) else json.dumps(content).encode()
    return b"Content-Length: %d\r\n\r\n%b" % (len(data), data)


def request(number, method, **params):
    return {"jsonrpc": "2.0", "id": number, "method": method, "params": params}


def notification(method, **params):
    return {"jsonrpc": "2.0", "method": method, "params": params}


def opened(text, uri=URI, version=1):
    document = {"uri": uri, "languageId": "pptable", "version": version, "text": text}
    return notification("textDocument/didOpen", textDocument=document)


def changed(version, *changes, uri=URI):
    document = {"uri": uri, "version": version}
    return notification("textDocument/didChange", textDocument=document, contentChanges=list(changes))


def at(line, character):
    return {"line": line, "character": character}


def span(line, begin, end, last=None):
    return {"start": at(line, begin), "end": at(line if last is None else last, end)}


def asked(number, method, line, character, **more):
    return request(
        number,
        "textDocument/" + method,
        textDocument={"uri": URI},
        position=at(line, character),
        **more,
    )


INITIALIZED = notification("initialized")
SHUTDOWN = request("shutdown", "shutdown")
EXIT = notification("exit")


def initialize(**capabilities):
    return request(0, "initialize", processId=None, rootUri=None, capabilities=capabilities)


class Session:
    """A running server. Its messages are read one after the other."""

    def __init__(self, test, **capabilities):
        self.server = subprocess.Popen(
            [program.PPWORD, "lsp"],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            cwd=test.folder,
        )
        test.addCleanup(self.end)
        self.capabilities = self.ask(initialize(**capabilities))["result"]["capabilities"]
        self.send(INITIALIZED)

    def end(self):
        if self.server.poll() is None:
            self.server.kill()
        self.server.communicate()

    def send(self, *messages):
        self.server.stdin.write(b"".join(map(framed, messages)))
        self.server.stdin.flush()

    def receive(self):
        return receive(self.server.stdout)

    def ask(self, message):
        """The answer to a request; messages before it are dropped."""
        self.send(message)
        while True:
            received = self.receive()
            if received is None or received.get("id") == message["id"]:
                return received

    def published(self):
        """The next findings that the server sends of itself."""
        while True:
            received = self.receive()
            if "method" in received:
                return received["params"]


def receive(stream):
    """The next message of a stream; nothing at its end."""
    length = None
    while line := stream.readline():
        if line == b"\r\n":
            return json.loads(stream.read(length))
        name, _, value = line.partition(b":")
        if name == b"Content-Length":
            length = int(value)
    return None
