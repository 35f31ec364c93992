// The places of an NC program that the block numbers of a listing name.

#include "post/listing/BlockPlaces.h"

#include <gtest/gtest.h>

#include <string>

namespace {

host::BlockPlaces twoFiles() {
  host::BlockPlaces places;
  places.add("part.ngc");
  places.setLines(10);
  places.add("sub.ngc");
  places.setLines(3);
  return places;
}

std::string textOf(const host::LinePlace& place) {
  return std::string(place.file) + ':' + std::to_string(place.line) +
         (place.isCalled ? " called" : "");
}

TEST(BlockPlaces, NumbersAreLinesAndFiles) {
  host::BlockPlaces places;
  places.add("part.ngc");
  EXPECT_EQ(places.numberOf(7), "7");
  places.add("sub.ngc");
  EXPECT_EQ(places.numberOf(7), "1000000007");
}

TEST(BlockPlaces, PlacesAreThoseOfTheNumbers) {
  const host::BlockPlaces places = twoFiles();
  EXPECT_EQ(textOf(places.placeOf("7")), "part.ngc:7");
  EXPECT_EQ(textOf(places.placeOf("1000000002")), "sub.ngc:2 called");
  EXPECT_EQ(textOf(places.placeOf("11")), "part.ngc:10");
  EXPECT_EQ(textOf(places.placeOf("1000000099")), "sub.ngc:3 called");
}

TEST(BlockPlaces, OtherNumbersAreNoLine) {
  const host::BlockPlaces places = twoFiles();
  for (const std::string_view number :
       {".....", "", "-5", "1.5", "2000000001", "99999999999999999999"}) {
    EXPECT_EQ(textOf(places.placeOf(number)), "part.ngc:0") << number;
  }
}

TEST(BlockPlaces, LineAfterTheProgramIsKnown) {
  const host::BlockPlaces places = twoFiles();
  EXPECT_TRUE(places.isAfterProgram("11"));
  EXPECT_FALSE(places.isAfterProgram("10"));
  EXPECT_FALSE(places.isAfterProgram("....."));
}

}  // namespace
