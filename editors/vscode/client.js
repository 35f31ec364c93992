"use strict";

// Starts `ppword lsp` for tables, and ends it with the extension.

const { workspace } = require("vscode");
const { LanguageClient } = require("vscode-languageclient/node");

let client;

exports.activate = function () {
  const command = workspace.getConfiguration("pptable").get("program") || "ppword";
  client = new LanguageClient(
    "pptable",
    "PP word tables",
    { command, args: ["lsp"] },
    { documentSelector: [{ language: "pptable" }] }
  );
  return client.start();
};

exports.deactivate = function () {
  return client && client.stop();
};
