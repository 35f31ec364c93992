#pragma once

#include <string>
#include <vector>

#include "host/modeler/Document.h"
#include "post/consumer/ConsumerProfile.h"
#include "verify/DocumentWords.h"
#include "verify/Words.h"

/// The lines, words and PP commands of a document as plain texts, and the settings that a text is
/// written with: what a reader of the text compares it with.
[[nodiscard]] verify::DocumentWords documentWords(const host::Document& document);

/// What angles in radians are multiplied by in the program that is being generated.
[[nodiscard]] verify::Generation currentGeneration();

/// The major words of the table at `path` that texts follow.
[[nodiscard]] std::vector<std::string> textWordsOf(const std::string& path);

/// Adds these words: to a reader they are comments.
void addTextWords(const std::string& path, verify::Words& words);

/// Adds the words of a profile. Raises an InputError with the place of a word that is none or means
/// nothing known.
void addMeanings(const host::ConsumerProfile& profile, verify::Words& words);

/// What a text is read back with: what a document writes, and the words that a reader knows.
struct ReaderWords {
  /// `table`: the one that was loaded into the document; empty for none.
  ReaderWords(const host::Document& content, const std::string& table);

  verify::DocumentWords document;
  verify::Words words;
};
