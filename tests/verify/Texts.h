#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "verify/StatementReader.h"

/// What a text says: its events, and its findings as "LINE:COLUMN KEY MESSAGE".
struct ReadText {
  std::vector<std::string> events;
  std::vector<std::string> findings;
  std::vector<verify::Statement> statements;
};

/// Reads a text to its end.
inline ReadText readText(std::string_view text, const verify::Words& words = verify::Words()) {
  ReadText read;
  const auto report = [&read](const verify::Finding& finding) {
    const std::string place =
        std::to_string(finding.place.line) + ':' + std::to_string(finding.place.column);
    const std::string key(verify::rowOf(finding.rule).key);
    read.findings.push_back(place + ' ' + key + ' ' + verify::messageOf(finding));
  };
  verify::StatementReader reader(verify::bytesOf(text), words, report);
  verify::EventReader events(words);
  verify::Statement statement;
  while (reader.next(statement)) {
    read.events.emplace_back(verify::nameOf(events.next(statement)));
    read.statements.push_back(statement);
  }
  return read;
}
