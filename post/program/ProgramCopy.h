#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "post/listing/BlockPlaces.h"
#include "post/toolpath/LineReader.h"

namespace host {

/// A word such as G53 that moves in machine coordinates: how often, and where first.
struct MachineWord {
  std::string name;
  long count = 0;
  std::string file;
  long line = 0;
};

/// The copy of an NC program, and of the files that it calls, in which every block is numbered so
/// that a listing names its place.
class ProgramCopy {
 public:
  /// The most bytes of a program with the files that it calls.
  static constexpr std::size_t kMostBytes = std::size_t{1} << 29U;

  /// Copies the program to `copy`, with a line M2 after it, and the files of `folder` that it calls
  /// to `calledFiles`. An InputError for a file that cannot be read, for a byte 0, and for programs
  /// that are too long; an OutputError for a copy that cannot be written.
  ProgramCopy(LineReader& program, const std::filesystem::path& copy,
              const std::filesystem::path& folder, const std::filesystem::path& calledFiles);

  [[nodiscard]] const std::shared_ptr<BlockPlaces>& places() const noexcept { return places_; }
  /// The copies of the files, in the order of the places.
  [[nodiscard]] const std::vector<std::filesystem::path>& copies() const noexcept {
    return copies_;
  }
  /// The words G28, G30 and G53, outside of comments.
  [[nodiscard]] const std::vector<MachineWord>& machineWords() const noexcept { return words_; }
  /// The tools that T words name.
  [[nodiscard]] const std::set<int>& tools() const noexcept { return tools_; }

 private:
  void copy(LineReader& lines, const std::filesystem::path& to, bool isProgram);
  void read(std::string_view line, const LineReader& lines);
  void readWord(char letter, double value, const LineReader& lines);
  void copyCalled(const std::filesystem::path& folder, const std::filesystem::path& to);
  void addNumbered(const std::filesystem::path& folder);
  void call(std::string name);

  std::shared_ptr<BlockPlaces> places_ = std::make_shared<BlockPlaces>();
  std::vector<std::filesystem::path> copies_;
  std::vector<MachineWord> words_;
  std::set<int> tools_;
  std::set<std::string> called_, defined_;
  /// What is called and was not looked up yet.
  std::vector<std::string> due_;
  std::size_t bytes_ = 0;
};

}  // namespace host
