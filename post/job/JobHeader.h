#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace host {

/// What the first line of a job states.
struct JobHeader {
  enum class Units { Millimetre, Inch };

  std::string program;
  /// Unit of every length of the job. Nothing is converted.
  Units units = Units::Millimetre;
  /// The machine, and the PP word table that it names; empty where the header names none.
  std::string resource;
  std::string table;
  /// The document file whose PP words apply, seen from the job's folder; empty where none is named.
  std::string document;
  /// Formats of points and tool axes; empty where the parameters' own formats apply.
  std::string pointFormat;
  std::string axisFormat;
  /// Angles in radians are multiplied by this before they are printed.
  std::optional<double> angleFactor;
  std::vector<std::pair<std::string, double>> designParameters;
  /// Whether every kind of loss is refused, and the keys of those that are.
  bool isStrict = false;
  struct StrictKey {
    std::string key;
    long column;
  };
  std::vector<StrictKey> strictKeys;

  /// Where the header is, and in it the table's name and the formats (0 without one).
  std::string file;
  long line = 0;
  long tableColumn = 0;
  long pointFormatColumn = 0;
  long axisFormatColumn = 0;
};

}  // namespace host
