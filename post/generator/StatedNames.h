#pragma once

#include <string>
#include <string_view>

#include "host/system/TextHash.h"
#include "post/generator/Summary.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Finds the parameters of activities that are perhaps misspelt: no reference asks for them, they
/// are unknown, and they are one mistake away from a known one. Parameters that a user added are
/// taken as they are. At most Tally::kMostNames names are followed.
class StatedNames {
 public:
  /// The parameters of an activity, and of what it leads to.
  void read(const ActivityStart& activity);
  /// A reference asks for a parameter.
  void use(std::string_view name) {
    if (!suspects_.empty()) remove(name);
  }
  /// Counts those that nothing asked for so far, and forgets them.
  void report(Tally& misspelt);

 private:
  struct Suspect {
    std::string meant;
    long count;
    long line;
    std::string activity;
  };

  void readValues(const ActivityValues& values, const ActivityStart& activity);
  void readNames(const NamedValues& values, const ActivityStart& activity);
  void remove(std::string_view name);

  TextMap<Suspect> suspects_;
  /// Unknown names that are used, or that are like no other.
  TextMap<bool> others_;
};

}  // namespace host
