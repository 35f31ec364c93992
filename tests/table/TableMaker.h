#pragma once

#include <random>
#include <string>

#include "tests/table/TableFiles.h"

/// Makes tables of pieces in any order: keywords, names, inserts that end and that do not, text
/// words, values, lines and tokens at the limits of their length.
class TableMaker {
 public:
  explicit TableMaker(unsigned seed) : random_(seed) {}

  [[nodiscard]] std::string table();
  [[nodiscard]] std::size_t below(std::size_t bound) { return random_() % bound; }

 private:
  std::mt19937 random_;
};
