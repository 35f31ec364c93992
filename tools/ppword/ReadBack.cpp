#include "tools/ppword/ReadBack.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <variant>

#include "post/toolpath/LineReader.h"
#include "tools/ppword/VerifyReport.h"

namespace {

// A group ends with one of them: each bounds what is in memory.
constexpr std::size_t kMostEvents = 256;
constexpr std::size_t kMostPoints = 4096;

std::size_t pointsOf(const host::ToolPathEvent& event) {
  const auto* const element = std::get_if<host::Element>(&event);
  return element == nullptr ? 0 : element->positions.size();
}

std::shared_ptr<const ReaderWords> readerWords(const ToolPathInput& input,
                                               const host::ConsumerProfile* profile) {
  auto words = input.readerWords();
  if (profile == nullptr || profile->words.empty()) return words;
  auto own = std::make_shared<ReaderWords>(*words);
  addMeanings(*profile, own->words);
  return own;
}

verify::Cards cardsOf(const host::ConsumerProfile* profile) {
  const bool isNumbered = profile != nullptr && profile->consumer.sequenceStep > 0;
  return isNumbered ? verify::Cards::Always : verify::Cards::Never;
}

}  // namespace

ReadBack::ReadBack(ToolPathInput& input, host::OutputFile& file,
                   const host::ConsumerProfile* profile)
    : input_(input),
      file_(file),
      words_(readerWords(input, profile)),
      reader_(
          [this](char* to, std::size_t most) {
            const std::size_t count = file_.readBack(to, most, offset_);
            offset_ += count;
            return count;
          },
          words_->words, cardsOf(profile)),
      comparison_(
          words_->document, words_->words,
          [this](verify::Statement& statement) { return reader_.next(statement); },
          currentGeneration()) {
  comparison_.takeLinesFrom(reader_);
  if (profile != nullptr) comparison_.setConsumer(profile->consumer);
}

void ReadBack::run(host::Generator& generator, host::ToolPathReader& events) {
  while (events.next(place())) {
    generator.put(events_[count_]);
    points_ += pointsOf(events_[count_]);
    // Where a statement is missing, the one after it must be there: the difference is then found
    // at the right place.
    if (++count_ == kMostEvents || points_ >= kMostPoints) compareAllBut(1);
  }
  generator.finish();
  compareAllBut(0);
  comparison_.finish();
  if (input_.listing() != nullptr) noteCoolant(*input_.listing(), comparison_);
}

// Where the next event goes.
host::ToolPathEvent& ReadBack::place() {
  if (count_ == events_.size()) events_.emplace_back();
  return events_[count_];
}

void ReadBack::compareAllBut(std::size_t left) {
  const std::size_t end = count_ - left;
  try {
    for (std::size_t at = 0; at < end && comparison_.put(events_[at]); ++at) {
    }
  } catch (const verify::UnknownInstruction& unknown) {
    refuseInstruction(unknown, input_.name());
  }
  if (left > 0) std::swap(events_.front(), events_[end]);
  // The memory of many points is not left in every place.
  for (std::size_t at = left; points_ >= kMostPoints && at < count_; ++at) {
    events_[at] = host::ToolPathEvent();
  }
  count_ = left;
  points_ = left > 0 ? pointsOf(events_.front()) : 0;
}

std::vector<host::Diagnostic> ReadBack::places() const {
  const auto& difference = comparison_.difference();
  if (!difference) return {};
  return diagnosticsOf(*difference, file_.name(), reader_.lines(), input_.name());
}

void noteCoolant(const host::ListingReader& listing, verify::Comparison& comparison) {
  constexpr std::string_view kCoolant[] = {"FLOOD_ON", "FLOOD_OFF", "MIST_ON", "MIST_OFF"};
  for (const host::CallCount& call : listing.calls().all()) {
    const bool isCoolant = std::ranges::find(kCoolant, call.name) != std::end(kCoolant);
    if (!isCoolant || call.fate != host::CallFate::Other) continue;
    comparison.noteLeftOut(call.name, {call.count, {call.firstLine, call.firstFile}});
  }
}

void refuseInstruction(const verify::UnknownInstruction& unknown, const std::string& input) {
  const std::string& file = unknown.place.file;
  throw host::InputError(file.empty() ? input : file, unknown.place.line, 0,
                         "this document has no NC instruction " + unknown.name);
}
