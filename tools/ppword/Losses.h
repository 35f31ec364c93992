#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "post/consumer/ConsumerLines.h"
#include "post/generator/Summary.h"
#include "post/listing/ListingReader.h"
#include "post/program/ProgramCopy.h"
#include "tools/ppword/PostTable.h"

namespace verify {
class Comparison;
}

/// What a run made, for its report.
struct PostReport {
  const host::Summary& summary;
  /// Null for a job.
  const host::ListingReader* listing;
  /// Entries of the table that should have been loaded and were not.
  long missingEntries;
  const PostTable& table;
  /// The words of an NC program that move in unknown machine coordinates; null for another tool
  /// path.
  const std::vector<host::MachineWord>* machineWords;
  /// The text, read back, with the tool path; null for a text that was not read back.
  const verify::Comparison* comparison;
  /// Where the text went; empty for the standard output.
  std::string output;
  /// Null without a profile.
  const host::ConsumerLines* consumer = nullptr;
  /// The instructions whose lines are built in although a table was loaded.
  std::set<std::string> builtIn{};
  /// The instruction of a job whose comments are written as statements.
  std::set<std::string> bare{};
};

/// What was counted under one name, and where it was first.
struct Count {
  std::string name;
  long count;
  /// For people; empty where it is of no use.
  std::string place;
  /// The line, from 1, and its file if that is not the tool path itself.
  long line;
  std::string file;
};

/// Counts of one kind: what a text lacks or has, and what it should not have.
struct Counts {
  /// What a line for people begins with; empty for what another line reports.
  std::string_view opening;
  /// Empty where nothing is found.
  std::string_view key;
  std::vector<Count> all;
  /// Counted under names beyond those that are counted each, or without names.
  long others = 0;
  /// Whether a line of them says where each was first.
  bool hasPlaces = true;
  /// False for what is in the text, but should not be.
  bool isMissing = false;

  [[nodiscard]] long total() const;
  /// True for what a run refuses only when it is named.
  [[nodiscard]] bool isNote() const { return opening.starts_with("NOTE"); }
};

/// All kinds of findings of a run, those that were not met too, in the order of its report.
/// docs/losses.md is their manual.
[[nodiscard]] std::vector<Counts> findingsOf(const PostReport& report);

/// What else was counted: moves that are in the text.
[[nodiscard]] Counts movesOf(const PostReport& report);
/// Instructions and calls, one name a line.
[[nodiscard]] std::vector<Counts> detailsOf(const PostReport& report);
