#include "post/generator/StatedNames.h"

#include <algorithm>
#include <vector>

#include "post/parameters/Parameters.h"
#include "post/text/NearWords.h"

namespace host {
namespace {

const NearWords& knownNames() {
  static const NearWords names = [] {
    std::vector<std::string_view> all;
    for (const Parameter& parameter : knownParameters()) all.emplace_back(parameter.name);
    return NearWords(std::move(all));
  }();
  return names;
}

/// The known parameter that an unknown name is perhaps meant for; names that differ in the number
/// at their end are different on purpose.
std::string_view meantBy(std::string_view name) {
  return knownNames().near(
      name, [name](std::string_view known) { return withoutNumber(known) != withoutNumber(name); });
}

}  // namespace

void StatedNames::read(const ActivityStart& activity) {
  readValues(activity, activity);
  if (activity.operation) readValues(*activity.operation, activity);
}

void StatedNames::readValues(const ActivityValues& values, const ActivityStart& activity) {
  readNames(values.parameters, activity);
  if (values.tool) readNames(values.tool->parameters, activity);
  if (!values.assembly) return;
  readNames(values.assembly->parameters, activity);
  if (values.assembly->insert) readNames(values.assembly->insert->parameters, activity);
}

void StatedNames::readNames(const NamedValues& values, const ActivityStart& activity) {
  for (const auto& [name, value] : values) {
    if (findParameter(name) != nullptr || others_.contains(name)) continue;
    if (const auto known = suspects_.find(name); known != suspects_.end()) {
      ++known->second.count;
      continue;
    }
    if (suspects_.size() + others_.size() >= Tally::kMostNames) continue;
    const std::string_view meant = meantBy(name);
    if (meant.empty()) {
      others_.emplace(name, true);
    } else {
      suspects_.emplace(name, Suspect{std::string(meant), 1, activity.line, activity.name});
    }
  }
}

void StatedNames::remove(std::string_view name) {
  const auto known = suspects_.find(name);
  if (known == suspects_.end()) return;
  others_.emplace(name, true);
  suspects_.erase(known);
}

void StatedNames::report(Tally& misspelt) {
  std::vector<std::pair<std::string_view, const Suspect*>> inOrder;
  for (const auto& [name, suspect] : suspects_) inOrder.emplace_back(name, &suspect);
  std::sort(inOrder.begin(), inOrder.end(), [](const auto& left, const auto& right) {
    return std::pair(left.second->line, left.first) < std::pair(right.second->line, right.first);
  });
  for (const auto& [name, suspect] : inOrder) {
    const std::string text = (std::string(name) += ", perhaps ") += suspect->meant;
    misspelt.add(text, suspect->line, suspect->activity, suspect->count);
  }
  suspects_.clear();
}

}  // namespace host
