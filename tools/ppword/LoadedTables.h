#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "host/modeler/Document.h"

struct ReaderWords;

/// The documents of a run of many jobs: each document file is opened once, each table loaded once
/// over it, and every job gets a copy.
class LoadedTables {
 public:
  /// A document with the content of a document file, or of a new document without a file, over
  /// which a table was loaded, if one is named. What became of the entries of the table goes to the
  /// listener of the session, as if it were loaded now. Raises what opening and loading raise.
  [[nodiscard]] KEPVar<host::Document> documentWith(const std::string& documentFile,
                                                    const std::string& table);
  /// What the texts of such a document, which was asked for, are read back with.
  [[nodiscard]] std::shared_ptr<const ReaderWords> readerWords(const std::string& documentFile,
                                                               const std::string& table);

 private:
  struct Entry {
    KEPMfgPPWordListener::Section section;
    int number;
    std::string name;
    KEPMfgPPWordListener::Outcome outcome;
  };
  struct Loaded {
    KEPVar<host::Document> document;
    std::vector<Entry> entries;
    /// Null until they are asked for.
    std::shared_ptr<const ReaderWords> words;
  };
  class Recorder;

  [[nodiscard]] static Loaded load(const std::string& documentFile, const std::string& table);

  std::map<std::pair<std::string, std::string>, Loaded> loaded_;
};
