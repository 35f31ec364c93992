#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "post/generator/Summary.h"
#include "post/listing/ListingReader.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Losses.h"
#include "tools/ppword/view/Columns.h"

/// Where the losses and warnings of a run are: what `post` counts, with the elements at which it is
/// counted.
class FindingPlaces {
 public:
  /// How many places are noted; further ones are counted only.
  static constexpr long kMostPlaces = 20000;

  /// `listing` is null for a job. Both must be there until the last element is noted.
  FindingPlaces(const host::Summary& summary, const host::ListingReader* listing);

  /// Notes what was counted since the last call. What is counted before an element is written
  /// belongs to the one with this number, everything else to the one before it.
  void noteBefore(long element);

  /// The findings of the whole run.
  [[nodiscard]] Json json(const PostReport& report);

 private:
  /// A tally that is followed, with what it had counted under each name.
  struct Followed {
    std::string_view key;
    host::Tally host::Summary::*tally;
    bool isBeforeElement = false;
    long total = 0;
    std::vector<long> counts{};
  };

  void note(Followed& followed, long element);
  void noteCalls(long element);
  void addPlace(std::string_view key, std::string_view name, long element);
  [[nodiscard]] std::size_t numberOf(std::string_view key, const std::string& name);
  void addFindings(const Counts& counts, Json& list);
  [[nodiscard]] Json findingJson(std::string_view key, const Count& count);

  const host::Summary& summary_;
  const host::ListingReader* listing_;
  std::vector<Followed> followed_;
  /// How many calls were counted under each name.
  std::vector<long> calls_;
  /// The numbers of the findings, by their keys and names.
  std::map<std::pair<std::string_view, std::string>, std::size_t> known_;
  /// Of each place the element and the number of the finding.
  Column elements_;
  Column numbers_;
  long places_ = 0;
};
