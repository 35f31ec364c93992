#include "post/listing/Coolant.h"

#include <utility>

namespace host {
namespace {

int sequenceOf(Coolant::Kind kind) {
  return kind == Coolant::Kind::Flood ? Coolant::kFlood : Coolant::kMist;
}

}  // namespace

Coolant::Sequences Coolant::on(Kind kind) {
  isKnown_ = true;
  if (std::exchange(runs(kind), true)) return {};
  return {sequenceOf(kind)};
}

Coolant::Sequences Coolant::off(Kind kind) {
  const bool ran = std::exchange(runs(kind), false);
  if (!ran && std::exchange(isKnown_, true)) return {};
  const Kind other = kind == Kind::Flood ? Kind::Mist : Kind::Flood;
  if (runs(other)) return {kOff, sequenceOf(other)};
  return {kOff};
}

}  // namespace host
