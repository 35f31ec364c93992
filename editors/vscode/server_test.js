"use strict";

// Starts the program that PPWORD names as an editor does, and asks it about a table.

const assert = require("assert");
const { spawn } = require("child_process");
const protocol = require("vscode-languageserver-protocol/node");

const uri = "file:///table.pptable";
const text = "*START_NC_COMMAND NC_STOP\nX/%MFG_XPONT\n*END\n";

async function main() {
  const server = spawn(process.env.PPWORD || "ppword", ["lsp"], { stdio: ["pipe", "pipe", "inherit"] });
  const ended = new Promise((resolve) => server.on("exit", resolve));
  const client = protocol.createProtocolConnection(
    new protocol.StreamMessageReader(server.stdout),
    new protocol.StreamMessageWriter(server.stdin)
  );
  const published = new Promise((resolve) =>
    client.onNotification(protocol.PublishDiagnosticsNotification.type, resolve)
  );
  client.listen();
  await client.sendRequest(protocol.InitializeRequest.type, { processId: null, rootUri: null, capabilities: {} });
  await client.sendNotification(protocol.InitializedNotification.type, {});
  await client.sendNotification(protocol.DidOpenTextDocumentNotification.type, {
    textDocument: { uri, languageId: "pptable", version: 1, text },
  });
  const { diagnostics } = await published;
  assert.deepStrictEqual(diagnostics.map((each) => each.code), ["unknown-parameter"]);
  const { range } = diagnostics[0];
  const [action] = await client.sendRequest(protocol.CodeActionRequest.type, {
    textDocument: { uri },
    range,
    context: { diagnostics },
  });
  assert.deepStrictEqual(action.edit.changes[uri], [{ range, newText: "%MFG_XPOINT" }]);
  await client.sendRequest(protocol.ShutdownRequest.type);
  await client.sendNotification(protocol.ExitNotification.type);
  assert.strictEqual(await ended, 0);
  console.log("server: passed");
}

main().catch((error) => {
  console.error(error);
  process.exit(1);
});
