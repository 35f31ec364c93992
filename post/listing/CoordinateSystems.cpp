#include "post/listing/CoordinateSystems.h"

#include <string>
#include <utility>
#include <variant>

namespace host {
namespace {

/// The x y z a b c among the arguments of a call.
std::span<const double, WorkFrame::kAxes> axes(const CanonicalArguments& arguments,
                                               std::size_t first) {
  return std::span(arguments.numbers).subspan(first).first<WorkFrame::kAxes>();
}

constexpr std::string_view kCoordinates =
    "MFG_NCAXIS_X_ORIG, MFG_NCAXIS_Y_ORIG and MFG_NCAXIS_Z_ORIG";
constexpr std::string_view kRotation = "MFG_NCAXIS_X_VECX and MFG_NCAXIS_Y_VECX";
constexpr std::string_view kConvert = "convert the moves with --origins convert";

}  // namespace

CoordinateSystems::CoordinateSystems(const std::optional<OriginWords>& words, bool converts,
                                     bool withToolAxes)
    : words_(converts ? std::nullopt : words), converts_(converts), withToolAxes_(withToolAxes) {}

bool CoordinateSystems::change(const CallRule& rule, const CanonicalArguments& arguments,
                               LengthUnit unit, SourceLine place) {
  const WorkFrame before = now_;
  if (rule.effect == CallEffect::FixtureOffset) {
    const int number = static_cast<int>(arguments.numbers[0]);
    now_.setFixtureOffset(number, axes(arguments, 1), unit);
  } else if (rule.effect == CallEffect::ProgramOffset) {
    now_.setProgramOffset(axes(arguments, 0), unit);
  } else {
    now_.setRotation(arguments.numbers[0]);
  }
  isChanged_ = true;
  const bool isMoved = !now_.isSameAs(before);
  if (!isMoved && now_.number() == before.number()) return false;
  changedBy_ = rule.name;
  changedAt_ = place;
  return isMoved;
}

const WorkFrame* CoordinateSystems::beforeMove(const CanonicalCall& call, LengthUnit unit,
                                               const LinePlace& place) {
  if (!std::exchange(isChanged_, false)) return nullptr;
  checkTurned(call, place);
  if (!std::exchange(hasBegun_, true)) return begin();
  const bool isSame = now_.isSameAs(text_);
  const bool isRenumbered = now_.number() != text_.number();
  const bool needsLine = words_ && (!isSame || (isRenumbered && words_->number));
  if (needsLine || !isSame) checkChange(call, place);
  if (needsLine) {
    stateNow();
    return &text_;
  }
  if (isSame && isRenumbered) merged_ = {text_.number(), now_.number()};
  motion_.reset();
  if (!isSame) motion_.emplace(now_, text_, unit);
  return nullptr;
}

const WorkFrame* CoordinateSystems::begin() {
  if (words_) unsaid_ = missingWords();
  stateNow();
  return words_ && unsaid_.empty() && !now_.isPlain() ? &text_ : nullptr;
}

void CoordinateSystems::stateNow() {
  text_ = now_;
  if (hasNumber()) numbered_.insert_or_assign(now_.number(), now_);
}

void CoordinateSystems::checkTurned(const CanonicalCall& call, const LinePlace& place) const {
  if (!withToolAxes_ || !now_.isTurned()) return;
  place.refuse(call.nameAt, "the coordinate system has rotary offsets or a rotated XY plane (" +
                                changeText() +
                                "), so the tool axis is unknown; create the listing without them");
}

// A program would move to another place than its text.
void CoordinateSystems::checkChange(const CanonicalCall& call, const LinePlace& place) const {
  const auto refuse = [&](const std::string& advice) {
    place.refuse(call.nameAt,
                 "this move uses another coordinate system than the moves before it (" +
                     changeText() + "); " + advice);
  };
  if (!converts_ && !words_) refuse("write NC_ORIGIN in a table, or " + std::string(kConvert));
  if (!now_.turnsWordsAs(text_)) {
    refuse("its rotary words mean other angles; create the listing without rotary offsets");
  }
  if (converts_) return;
  const std::string_view words = unsaid_.empty() ? missingWords() : unsaid_;
  if (words.empty()) return;
  refuse(("the NC_ORIGIN of the table has to print " + std::string(words) + " for it, or ")
             .append(kConvert));
}

std::string_view CoordinateSystems::missingWords() const {
  if (words_->coordinates) {
    return words_->rotation || now_.isRotatedAs(text_) ? "" : kRotation;
  }
  return words_->number && isNamed() ? "" : kCoordinates;
}

// A number names the place of its fixture offset, without a program offset, and only while that
// offset stays.
bool CoordinateSystems::isNamed() const {
  if (!hasNumber() || now_.hasProgramOffset()) return false;
  const auto known = numbered_.find(now_.number());
  return known == numbered_.end() || known->second.isSameAs(now_);
}

void CoordinateSystems::convert(std::span<ToolPathEvent> events) {
  if (!motion_) return;
  hasConverted_ = true;
  for (ToolPathEvent& event : events) {
    if (auto* const element = std::get_if<Element>(&event)) motion_->apply(*element);
  }
}

// "SET_G92_OFFSET in line 8", of a file if an NC program calls it.
std::string CoordinateSystems::changeText() const {
  std::string text = std::string(changedBy_) + " in line " + std::to_string(changedAt_.line);
  if (!changedAt_.file.empty()) (text += " of ") += changedAt_.file;
  return text;
}

}  // namespace host
