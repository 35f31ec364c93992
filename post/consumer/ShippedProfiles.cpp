#include <algorithm>
#include <iterator>

#include "post/consumer/ConsumerProfile.h"

namespace host {
namespace {

constexpr ShippedProfile kShipped[] = {
    {"iso4343",
     R"(# Statements as ISO 4343 has them: in columns 1 to 72, words of at most six letters.
columns = 72
line-end = lf
sequence-numbers = off
characters = ascii
other-characters = refuse
longest-word = 6
)"},
    {"cl", R"(# A CL file as cards of 80 columns, numbered in columns 73 to 80.
columns = 72
line-end = crlf
sequence-numbers = 10
characters = ascii
other-characters = ?
longest-word = any
)"}};

}  // namespace

std::span<const ShippedProfile> shippedProfiles() { return kShipped; }

bool isShipped(std::string_view name) {
  return std::any_of(std::begin(kShipped), std::end(kShipped),
                     [name](const ShippedProfile& each) { return each.name == name; });
}

}  // namespace host
