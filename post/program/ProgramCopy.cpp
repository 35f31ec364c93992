#include "post/program/ProgramCopy.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <fstream>

#include "host/system/SystemReason.h"
#include "post/output/OutputFile.h"
#include "post/text/NcBlock.h"

namespace host {
namespace {

constexpr std::size_t kMostFiles = 1000;
constexpr std::string_view kComputed = "#";

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// "g53" for 53; empty for a word that means nothing here.
std::string machineWord(double value) {
  for (const int code : {28, 30, 53}) {
    if (value == code) return "G" + std::to_string(code);
  }
  return "";
}

}  // namespace

ProgramCopy::ProgramCopy(LineReader& program, const std::filesystem::path& copy,
                         const std::filesystem::path& folder,
                         const std::filesystem::path& calledFiles) {
  this->copy(program, copy, true);
  copyCalled(folder, calledFiles);
}

void ProgramCopy::copy(LineReader& lines, const std::filesystem::path& to, bool isProgram) {
  places_->add(lines.name());
  copies_.push_back(to);
  std::ofstream output(to, std::ios::binary);
  for (std::string_view line; output && lines.next(line);) {
    read(line, lines);
    output << numberedBlock(line, places_->numberOf(lines.lineNumber())) << '\n';
  }
  places_->setLines(lines.lineNumber());
  if (isProgram) output << 'N' << places_->numberOf(lines.lineNumber() + 1) << " M2\n";
  output.close();
  if (!output) throw OutputError(to.string(), systemReason(errno));
}

void ProgramCopy::read(std::string_view line, const LineReader& lines) {
  const std::size_t zero = line.find('\0');
  if (zero != std::string_view::npos) {
    throw InputError(lines.name(), lines.lineNumber(), static_cast<long>(zero) + 1,
                     "the byte 0x00 is not text; this is not an NC program");
  }
  bytes_ += line.size() + 1;
  if (bytes_ > kMostBytes) {
    throw InputError(lines.name(), lines.lineNumber(), 0,
                     "the program is longer than 512 MiB (536870912 bytes)");
  }
  const NcBlock block(line);
  for (const NcWord& word : block.words()) readWord(word.letter, word.value, lines);
  if (std::string name = block.called(); !name.empty()) call(std::move(name));
  if (std::string name = block.defined(); !name.empty()) defined_.insert(std::move(name));
}

void ProgramCopy::readWord(char letter, double value, const LineReader& lines) {
  constexpr double kHighestTool = 99999.0;
  const bool isTool = letter == 't' && value >= 1.0 && value <= kHighestTool;
  if (isTool && value == std::floor(value)) tools_.insert(static_cast<int>(value));
  const std::string name = letter == 'g' ? machineWord(value) : "";
  if (name.empty()) return;
  const auto known = std::ranges::find(words_, name, &MachineWord::name);
  if (known != words_.end()) {
    ++known->count;
  } else {
    words_.push_back({name, 1, lines.name(), lines.lineNumber()});
  }
}

void ProgramCopy::copyCalled(const std::filesystem::path& folder, const std::filesystem::path& to) {
  while (!due_.empty()) {
    const std::string name = std::move(due_.back());
    due_.pop_back();
    if (name == kComputed) {
      addNumbered(folder);
      continue;
    }
    const std::filesystem::path file = folder / (name + ".ngc");
    std::error_code error;
    const bool isFile = !defined_.contains(name) && name.find('/') == std::string::npos &&
                        std::filesystem::is_regular_file(file, error);
    if (!isFile) continue;
    if (copies_.size() > kMostFiles) {
      throw InputError(places_->names().front(), 0, 0, "the program calls more than 1000 files");
    }
    LineReader lines(file.string());
    copy(lines, to / (name + ".ngc"), false);
  }
}

// A number that is computed can be that of any file with a number.
void ProgramCopy::addNumbered(const std::filesystem::path& folder) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::filesystem::path file = entry->path();
    if (file.extension() == ".ngc" && isNumber(file.stem().string())) {
      call(file.stem().string());
    }
  }
}

void ProgramCopy::call(std::string name) {
  if (called_.insert(name).second) due_.push_back(std::move(name));
}

}  // namespace host
