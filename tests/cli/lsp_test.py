"""ppword lsp: what it answers, and what it does with messages that are not what they must be."""

import json
import os
import subprocess

import program
from lsp_client import (
    EXIT,
    INITIALIZED,
    SHUTDOWN,
    URI,
    Session,
    asked,
    at,
    changed,
    framed,
    initialize,
    notification,
    opened,
    receive,
    request,
    span,
)

TABLE = """*START_MINOR_WORDS
FLOOD,89
*END
*START_NC_COMMAND NC_STOP
COOLNT/FLOOD
*END
*START_FORMAT MFG_YPOINT
%.3f
*END
*START_NC_INSTRUCTION NC_GOTO
GOTO/%MFG_XPONT,%MFG_YPOINT,&MFG_FEED_UNIT
*INSERT NC_STOP
*END
"""
XPONT = (
    "%MFG_XPONT, perhaps MFG_XPOINT: neither the document nor the table knows this parameter; "
    "correct the name, unless every job states it for its activities"
)


def finding(severity, code, message, place):
    return {
        "severity": severity,
        "code": code,
        "message": message,
        "range": place,
        "source": "ppword",
    }


def error(number, code, message):
    return {"jsonrpc": "2.0", "id": number, "error": {"code": code, "message": message}}


def result(number, value):
    return {"jsonrpc": "2.0", "id": number, "result": value}


def document(number, method, **more):
    return request(number, "textDocument/" + method, textDocument={"uri": URI}, **more)


class Answers(program.ProgramTest):
    def session(self, text=None, **capabilities):
        session = Session(self, **capabilities)
        if text is not None:
            session.send(opened(text))
            self.findings = session.published()
        return session

    def places(self, session, method, line, character, **more):
        """The ranges of an answer as "LINE:BEGIN-END"."""
        answer = session.ask(asked(1, method, line, character, **more))["result"]
        for place in answer:
            self.assertEqual(place["uri"], URI)
            self.assertEqual(place["range"]["start"]["line"], place["range"]["end"]["line"])
        return [
            f"{start['line']}:{start['character']}-{end['character']}"
            for start, end in ((each["range"]["start"], each["range"]["end"]) for each in answer)
        ]

    def hover(self, session, line, character):
        answer = session.ask(asked(1, "hover", line, character))["result"]
        return answer and answer["contents"]["value"]

    def labels(self, session, line, character):
        answer = session.ask(asked(1, "completion", line, character))["result"]
        return [item["label"] for item in answer["items"]]

    # --- Lifecycle

    def test_capabilities(self):
        version = self.run_program("--version").stdout.split()[1]
        session = self.session()
        self.assertEqual(
            session.capabilities,
            {
                "positionEncoding": "utf-16",
                "textDocumentSync": {"openClose": True, "change": 2, "save": True},
                "completionProvider": {"triggerCharacters": ["%", "&", "*"]},
                "hoverProvider": True,
                "definitionProvider": True,
                "referencesProvider": True,
                "documentSymbolProvider": True,
                "codeActionProvider": {"codeActionKinds": ["quickfix"]},
            },
        )
        self.assertEqual(
            self.stream(initialize())[1][0]["result"]["serverInfo"],
            {"name": "ppword", "version": version},
        )

    def stream(self, *messages, raw=None):
        """Status, messages and errors of a server that gets all of its input at once."""
        data = b"".join(map(framed, messages)) if raw is None else raw
        done = subprocess.run(
            [program.PPWORD, "lsp", "--stdio"], input=data, capture_output=True, timeout=120, check=False
        )
        path = os.path.join(self.folder, "output")
        with open(path, "wb") as file:
            file.write(done.stdout)
        with open(path, "rb") as file:
            received = list(iter(lambda: receive(file), None))
        return done.returncode, received, done.stderr.decode()

    def test_shutdown_and_exit_end_with_0(self):
        status, received, errors = self.stream(initialize(), INITIALIZED, SHUTDOWN, EXIT)
        self.assertEqual((status, errors), (0, ""))
        self.assertEqual(received[1:], [result("shutdown", None)])

    def test_exit_without_shutdown_ends_with_1(self):
        self.assertEqual(self.stream(initialize(), EXIT)[::2], (1, ""))
        self.assertEqual(self.stream(EXIT), (1, [], ""))

    def test_end_of_input_ends_with_1(self):
        early = "ppword lsp: error: the input ends before exit\n"
        self.assertEqual(self.stream(), (1, [], early))
        self.assertEqual(self.stream(initialize(), INITIALIZED, SHUTDOWN)[::2], (1, early))
        inside = "ppword lsp: error: the input ends in a message\n"
        self.assertEqual(self.stream(raw=b"Content-Length: 10\r\n\r\n{"), (1, [], inside))
        self.assertEqual(self.stream(raw=b"Content-Le"), (1, [], inside))

    def test_requests_have_their_time(self):
        status, received, _ = self.stream(
            asked(1, "hover", 0, 0),
            opened(TABLE),
            initialize(),
            initialize(),
            asked(2, "hover", 0, 0),
            SHUTDOWN,
            asked(3, "hover", 0, 0),
            SHUTDOWN,
            opened(TABLE),
            EXIT,
        )
        self.assertEqual(status, 0)
        self.assertEqual(received[0], error(1, -32002, "the first request must be initialize"))
        self.assertEqual(
            received[2:],
            [
                error(0, -32600, "the server is initialized"),
                error(2, -32602, f"'{URI}' is not open"),
                result("shutdown", None),
                error(3, -32600, "the server was shut down"),
                error("shutdown", -32600, "the server was shut down"),
            ],
        )

    def test_unknown_methods(self):
        _, received, _ = self.stream(
            initialize(),
            request(1, "workspace/symbol"),
            notification("$/setTrace", value="off"),
            notification("textDocument/unknown"),
            request("x", "$/unknown"),
            EXIT,
        )
        self.assertEqual(
            received[1:],
            [
                error(1, -32601, "there is no method 'workspace/symbol'"),
                error("x", -32601, "there is no method '$/unknown'"),
            ],
        )

    def test_cancelled_request_is_not_answered(self):
        cancel = notification("$/cancelRequest", id=2)
        _, received, _ = self.stream(
            initialize(),
            opened(TABLE),
            notification("$/cancelRequest", id=1),
            asked(1, "definition", 11, 9),
            asked(2, "definition", 11, 9),
            cancel,
            cancel,
            notification("$/cancelRequest", id=[]),
            notification("$/cancelRequest"),
            EXIT,
        )
        self.assertEqual([each["id"] for each in received[1:]], [1, 2])
        self.assertEqual(received[1]["result"][0]["range"], span(3, 18, 25))
        self.assertEqual(received[2], error(2, -32800, "the request was cancelled"))

    # --- Messages that are none

    def test_messages_that_are_not_json(self):
        not_json = error(None, -32700, "the message is not JSON")
        for content in (b"", b"{", b"nonsense", b'{"method":"\xff"}', b'"\\ud800"', b"[" * 200 + b"]" * 200):
            raw = framed(content) + framed(initialize()) + framed(EXIT)
            status, received, errors = self.stream(raw=raw)
            self.assertEqual((status, errors), (1, ""))
            self.assertEqual(received[0], not_json, content)
            self.assertEqual(received[1]["id"], 0)

    def test_messages_that_are_not_requests(self):
        strange = error(None, -32600, "the message is not a request of JSON-RPC 2.0")
        for content in ([], 1, None, "text", {}, {"id": 1, "method": "shutdown"}, [initialize()]):
            self.assertEqual(self.stream(content, EXIT)[1], [strange], content)
        self.assertEqual(
            self.stream({"jsonrpc": "2.0", "id": 1}, {"jsonrpc": "2.0", "method": 1}, EXIT)[1],
            2 * [error(None, -32600, "the message has no method")],
        )
        for number in (None, 1.5, [], {}, True):
            self.assertEqual(
                self.stream(request(number, "shutdown"), EXIT)[1],
                [error(None, -32600, "the id is neither a text nor a whole number")],
            )
        self.assertEqual(self.stream({"jsonrpc": "2.0", "id": 1, "result": None}, EXIT)[1], [])

    def test_headers(self):
        content = json.dumps(EXIT).encode()
        length = b"%d" % len(content)
        for headers in (
            b"Content-Length: " + length,
            b"content-length:" + length + b" ",
            b"Content-Type: application/vscode-jsonrpc; charset=utf-8\r\nContent-Length: " + length,
        ):
            self.assertEqual(self.stream(raw=headers + b"\r\n\r\n" + content), (1, [], ""))

    def test_headers_that_end_the_work(self):
        number = "the Content-Length of a message is not a number"
        long = "a message is longer than 134217728 bytes"
        for headers, why in (
            (b"Content-Length: -1", number),
            (b"Content-Length: ", number),
            (b"Content-Length: 1x", number),
            (b"Content-Length: 0x10", number),
            (b"Content-Length: 134217729", long),
            (b"Content-Length: 99999999999999999999999999", long),
            (b"Content-Length: 2\r\nContent-Length: 2", "a message has two Content-Lengths"),
            (b"Content-Type: text", "a message has no Content-Length"),
            (b"{}", "a header of a message has no colon"),
            (b"X: " + 5000 * b"x", "the headers of a message do not end"),
        ):
            status, received, errors = self.stream(raw=headers + b"\r\n\r\n{}")
            self.assertEqual((status, errors), (1, f"ppword lsp: error: {why}\n"), headers)
            self.assertEqual(received, [error(None, -32700, why)])

    def test_parameters_that_are_wrong(self):
        session = self.session(TABLE)
        wrong = "the parameters lack a member, or one has the wrong type"
        number = "a position is not a whole number"
        good = {"uri": URI}
        for params, why in (
            ({}, wrong),
            ({"textDocument": good}, wrong),
            ({"textDocument": good, "position": 1}, wrong),
            ({"textDocument": good, "position": {"line": 0}}, wrong),
            ({"textDocument": good, "position": {"line": -1, "character": 0}}, number),
            ({"textDocument": good, "position": {"line": 0, "character": 0.5}}, number),
            ({"textDocument": {"uri": 1}}, wrong),
            ({"textDocument": {"uri": "file:///x"}}, "'file:///x' is not open"),
        ):
            answer = session.ask(request(1, "textDocument/hover", **params))
            self.assertEqual(answer, error(1, -32602, why), params)
        answer = session.ask({"jsonrpc": "2.0", "id": 2, "method": "textDocument/hover", "params": [1]})
        self.assertEqual(answer, error(2, -32602, wrong))
        session.send(
            notification("textDocument/didOpen"),
            notification("textDocument/didChange", textDocument={"uri": "file:///x"}, contentChanges=[]),
            notification("textDocument/didClose", textDocument={"uri": "file:///x"}),
            changed(2, {"range": 1, "text": "x"}),
        )
        self.assertEqual(self.places(session, "definition", 11, 9), ["3:18-25"])

    # --- Findings

    def test_findings_are_those_of_the_lint(self):
        self.session(TABLE)
        self.assertEqual(
            self.findings,
            {
                "uri": URI,
                "version": 1,
                "diagnostics": [finding(2, "unknown-parameter", XPONT, span(10, 5, 15))],
            },
        )

    def test_errors_and_notes_are_findings(self):
        self.session("*START_MINOR_WORDS\nXYZZY,1\n*END\n*START_LIST\n*END\n*STRAT_SYNTAXES\n")
        self.assertEqual(
            [(each["severity"], each["code"], each["range"]) for each in self.findings["diagnostics"]],
            [
                (3, "unused-words", span(1, 0, 5)),
                (1, "ERR_5006", span(3, 11, 11)),
                (1, "ERR_5001", span(5, 0, 15)),
            ],
        )

    def test_changes_are_applied_in_their_order(self):
        session = self.session(TABLE)
        session.send(
            changed(
                2,
                {"range": span(10, 11, 15), "text": "POINT"},
                {"range": span(10, 0, 0), "text": "x\n"},
                {"range": span(10, 0, 0, 11), "text": ""},
            )
        )
        self.assertEqual(session.published(), {"uri": URI, "version": 2, "diagnostics": []})
        session.send(changed(3, {"text": "*END\n"}))
        findings = session.published()
        self.assertEqual(findings["version"], 3)
        self.assertEqual([each["code"] for each in findings["diagnostics"]], ["no-section", "ERR_5002"])

    def test_range_after_the_text_is_its_end(self):
        session = self.session("A")
        session.send(changed(2, {"range": span(0, 99, 99, 99), "text": "\n*END"}))
        codes = [each["code"] for each in session.published()["diagnostics"]]
        self.assertEqual(codes, ["no-section", "ERR_5002"])

    def test_last_version_only_is_checked(self):
        changes = [changed(2 + i, {"text": i * " " + "*END\n"}) for i in range(300)]
        session = self.session()
        session.send(opened("*END\n"), *changes, changed(1000, {"text": TABLE}))
        versions = []
        while not versions or versions[-1] != 1000:
            versions.append(session.published()["version"])
        self.assertLess(len(versions), 100)

    def test_close_takes_the_findings_away(self):
        session = self.session(TABLE)
        session.send(notification("textDocument/didClose", textDocument={"uri": URI}))
        self.assertEqual(session.published(), {"uri": URI, "diagnostics": []})
        answer = session.ask(asked(1, "hover", 0, 0))
        self.assertEqual(answer, error(1, -32602, f"'{URI}' is not open"))

    def test_save_checks_again(self):
        session = self.session("")
        session.send(notification("textDocument/didSave", textDocument={"uri": URI}))
        self.assertEqual(session.published()["diagnostics"][0]["code"], "no-section")

    # --- Positions

    def test_positions_count_what_was_agreed(self):
        line = "PPRINT \u00e4\u20ac\U0001d11e\nX/\u00e4\u20ac\U0001d11e,%MFG_XPONT\n"
        text = "*START_NC_COMMAND NC_STOP\n" + line + "*END\n"
        for offered, chosen, begin in (
            (None, "utf-16", 7),
            (["utf-8"], "utf-8", 12),
            (["utf-7", "utf-32", "utf-8"], "utf-32", 6),
            (["utf-7"], "utf-16", 7),
        ):
            general = {} if offered is None else {"general": {"positionEncodings": offered}}
            session = self.session(text, **general)
            self.assertEqual(session.capabilities["positionEncoding"], chosen)
            place = next(
                each["range"]
                for each in self.findings["diagnostics"]
                if each["code"] == "unknown-parameter"
            )
            self.assertEqual(place, span(2, begin, begin + 10))
            session.send(changed(2, {"range": place, "text": "%MFG_XPOINT"}))
            codes = [each["code"] for each in session.published()["diagnostics"]]
            self.assertNotIn("unknown-parameter", codes)

    def test_every_line_end_counts(self):
        session = self.session("a\rb\r\nc\n*END\n\r")
        places = [each["range"] for each in self.findings["diagnostics"]]
        self.assertEqual(places, [span(0, 0, 0), span(3, 0, 4)])
        session.send(changed(2, {"range": span(3, 0, 0, 4), "text": "*START_SYNTAXES\n*END\n"}))
        self.assertEqual(session.published()["diagnostics"], [])

    # --- Completion

    def test_completion_after_keywords(self):
        session = self.session(
            TABLE + "*INSERT NC_\n*START_NC_COMMAND NC_GOTO_\n*START_LIST MFG_FEED\n*START_FORMAT MFG_XP\n*"
        )
        self.assertEqual(self.labels(session, 13, 11), ["NC_GOTO", "NC_GOTO_", "NC_STOP"])
        self.assertEqual(self.labels(session, 14, 26), ["NC_GOTO_VARIABLE_AXIS"])
        self.assertEqual(self.labels(session, 15, 20), ["MFG_FEED_UNIT"])
        self.assertEqual(self.labels(session, 16, 20), ["MFG_XPOINT"])
        keywords = self.labels(session, 17, 1)
        self.assertEqual(len(keywords), 12)
        self.assertIn("*INSERT", keywords)

    def test_completion_of_parameters_and_words(self):
        session = self.session(TABLE)
        item = {
            "label": "MFG_XPOINT",
            "kind": 6,
            "detail": "the X coordinate of the current point",
            "textEdit": {"newText": "MFG_XPOINT", "range": span(10, 6, 12)},
        }
        self.assertEqual(
            session.ask(asked(1, "completion", 10, 12))["result"],
            {"isIncomplete": False, "items": [item]},
        )
        session.send(changed(2, {"range": span(4, 7, 12), "text": "flo"}))
        self.assertEqual(self.labels(session, 4, 10), ["FLOOD"])
        self.assertEqual(self.labels(session, 1, 2), [])
        session.send(changed(3, {"text": TABLE.replace("%MFG_XPONT", "&MFG_FEED_U")}))
        self.assertEqual(self.labels(session, 10, 16), ["MFG_FEED_UNIT"])

    def test_completion_in_half_a_table(self):
        session = self.session("*START_NC_INSTRUCTION NC_GOTO\nCOOL")
        self.assertEqual(self.labels(session, 1, 4), ["COOLNT"])
        session.send(changed(2, {"text": "*INS"}))
        self.assertEqual(self.labels(session, 0, 4), ["*INSERT"])
        session.send(changed(3, {"text": ""}))
        self.assertEqual(self.labels(session, 0, 0), [])

    # --- Hover

    def test_hover_of_parameters(self):
        session = self.session(TABLE)
        self.assertEqual(
            session.ask(asked(1, "hover", 10, 20))["result"],
            {
                "contents": {
                    "kind": "markdown",
                    "value": "**MFG_YPOINT**: the Y coordinate of the current point\n\n"
                    "Type: real; unit: length; from: buffer; in a job: `points`\n\n"
                    "Format: `%.3f` (this table, line 7)",
                },
                "range": span(10, 17, 27),
            },
        )
        self.assertEqual(
            self.hover(session, 10, 8),
            "**MFG_XPONT**: neither the default catalogue nor this table has it.",
        )
        self.assertIn("List: `MMPM,MMPR` (default catalogue)", self.hover(session, 10, 28))

    def test_hover_of_instructions(self):
        session = self.session(TABLE)
        self.assertEqual(
            self.hover(session, 11, 10),
            "**NC_STOP**: an NC command, which only inserts and jobs that name it use\n\n"
            "This table: line 4\n\nInserted by NC_GOTO (line 10)",
        )
        self.assertEqual(
            self.hover(session, 9, 24),
            "**NC_GOTO**: an NC instruction of jobs and listings\n\nThis table: line 10\n\n"
            "Default catalogue:\n```apt\nGOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n```",
        )

    def test_hover_of_words_and_keywords(self):
        session = self.session(TABLE)
        self.assertEqual(
            self.hover(session, 4, 8), "**FLOOD**: minor word, code 89\n\nThis table: line 2"
        )
        self.assertEqual(
            self.hover(session, 4, 0),
            "**COOLNT**: a major word of standard APT or of the default catalogue; "
            "no word section of this table has it",
        )
        self.assertEqual(
            self.hover(session, 11, 0),
            "`*INSERT`: Inserts the lines of an NC command or instruction of the table.",
        )
        self.assertIsNone(self.hover(session, 1, 7))
        self.assertIsNone(self.hover(session, 99, 0))

    # --- Definitions, references, symbols, changes

    def test_definitions(self):
        session = self.session(TABLE)
        self.assertEqual(self.places(session, "definition", 11, 9), ["3:18-25"])
        self.assertEqual(self.places(session, "definition", 10, 20), ["6:14-24"])
        self.assertEqual(self.places(session, "definition", 4, 9), ["1:0-5"])
        self.assertEqual(self.places(session, "definition", 10, 1), [])
        self.assertEqual(self.places(session, "definition", 11, 2), [])

    def test_references(self):
        session = self.session(TABLE)
        uses = {"includeDeclaration": False}
        both = {"includeDeclaration": True}
        self.assertEqual(self.places(session, "references", 3, 20, context=uses), ["11:8-15"])
        self.assertEqual(self.places(session, "references", 3, 20, context=both), ["3:18-25", "11:8-15"])
        self.assertEqual(self.places(session, "references", 6, 16, context=both), ["6:14-24", "10:17-27"])
        self.assertEqual(self.places(session, "references", 1, 1, context=uses), ["4:7-12"])

    def test_symbols(self):
        session = self.session(
            TABLE, textDocument={"documentSymbol": {"hierarchicalDocumentSymbolSupport": True}}
        )
        symbols = session.ask(document(1, "documentSymbol"))["result"]
        self.assertEqual(
            [(each["name"], each["kind"], each["range"], each["selectionRange"]) for each in symbols],
            [
                ("*START_MINOR_WORDS", 3, span(0, 0, 8, 1), span(0, 0, 18)),
                ("NC_STOP", 12, span(3, 0, 4, 5), span(3, 18, 25)),
                ("MFG_YPOINT", 14, span(6, 0, 4, 8), span(6, 14, 24)),
                ("NC_GOTO", 12, span(9, 0, 4, 12), span(9, 22, 29)),
            ],
        )
        self.assertEqual(symbols[2]["detail"], "%.3f")

    def test_symbols_of_old_clients_are_flat(self):
        session = self.session("*START_LIST MFG_A\nX,Y\n*END\n")
        self.assertEqual(
            session.ask(document(1, "documentSymbol")),
            result(1, [{"name": "MFG_A", "kind": 10, "location": {"uri": URI, "range": span(0, 0, 4, 2)}}]),
        )

    def actions(self, session, place, **context):
        context = {"diagnostics": [], **context}
        return session.ask(document(1, "codeAction", range=place, context=context))["result"]

    def test_nearest_name_is_offered(self):
        session = self.session(TABLE)
        self.assertEqual(
            self.actions(session, span(10, 8, 8)),
            [
                {
                    "title": "Change to %MFG_XPOINT",
                    "kind": "quickfix",
                    "isPreferred": True,
                    "diagnostics": [finding(2, "unknown-parameter", XPONT, span(10, 5, 15))],
                    "edit": {"changes": {URI: [{"range": span(10, 5, 15), "newText": "%MFG_XPOINT"}]}},
                }
            ],
        )
        self.assertEqual(self.actions(session, span(0, 0, 5)), [])
        self.assertEqual(self.actions(session, span(10, 8, 8), only=["refactor"]), [])
        self.assertEqual(len(self.actions(session, span(10, 8, 8), only=["quickfix"])), 1)

    def test_every_kind_of_nearest_name_is_offered(self):
        session = self.session(
            "*STRAT_SYNTAXES\n"
            "*START_MINOR_WORDS\nFLODO,89\n*END\n"
            "*START_FORMAT MFG_XPONT\n%f\n*END\n"
            "*START_NC_COMMAND NC_GOTOO\nCOOLNTT/OFF\n*END\n"
        )
        titles = [each["title"] for each in self.actions(session, span(0, 0, 0, 99))]
        self.assertEqual(
            titles,
            [
                "Change to *START_SYNTAXES",
                "Change to FLOOD",
                "Change to MFG_XPOINT",
                "Change to NC_GOTO",
                "Change to COOLNT",
            ],
        )

    # --- Size

    def test_large_table_is_one_of_many(self):
        session = self.session()
        block = "*START_NC_COMMAND NC_STOP%d\nA A\n*END\n"
        session.send(opened("".join(block % i for i in range(6000))))
        diagnostics = session.published()["diagnostics"]
        self.assertEqual(len(diagnostics), 1001)
        self.assertEqual(
            diagnostics[-1]["message"],
            "this is the first of 5000 more of this kind, which are not shown; mend those that are",
        )
        self.assertEqual(len(session.ask(document(1, "documentSymbol"))["result"]), 6000)

    def test_one_long_line(self):
        session = self.session()
        session.send(opened("*START_NC_COMMAND NC_STOP\n" + 11000 * "A " + "\n*END\n"))
        self.assertEqual(len(session.published()["diagnostics"]), 1001)
        uses = self.places(session, "references", 1, 0, context={"includeDeclaration": True})
        self.assertEqual(uses, [f"1:{2 * i}-{2 * i + 1}" for i in range(10000)])

    def test_reader_that_goes_away(self):
        server = subprocess.Popen(
            [program.PPWORD, "lsp"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE
        )
        server.stdout.close()
        _, errors = server.communicate(b"".join(map(framed, (initialize(), EXIT))), timeout=120)
        self.assertEqual((server.returncode, errors), (3, b"ppword lsp: error: the output cannot be written\n"))


if __name__ == "__main__":
    program.main()
