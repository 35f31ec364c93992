// A table load reads the bytes of its table once; the reader scans the file at every query. Both
// must find the same in every table.

#include <gtest/gtest.h>

#include <iostream>

#include "language/table/MemorySource.h"
#include "language/table/TableCheck.h"
#include "src/table/FileSource.h"
#include "tests/container/TableLoading.h"
#include "tests/support/Mutator.h"
#include "tests/table/TableMaker.h"

namespace ppword::test {
namespace {

using Listener = KEPMfgPPWordListener;

std::string joined(const Texts& lines) {
  std::string text;
  for (const std::string& line : lines) text += "|" + line;
  return text;
}

std::string entryText(const char* section, int number, std::string_view name,
                      const std::string& content) {
  return std::string(section) + ' ' + std::to_string(number) + ' ' + std::string(name) + ": " +
         content;
}

constexpr const char* kNoName = "no name";
constexpr const char* kNoContent = "no content";
constexpr const char* kNotDeclared = "not declared";

// The answers of the reader, for the entries that a load takes.
Texts loadable(Texts answers, const Texts& loaded) {
  for (std::size_t i = 0; i < std::min(answers.size(), loaded.size()); ++i) {
    const std::size_t text = loaded[i].find(": ") + 2;
    if (loaded[i].substr(text) == kNotDeclared)
      answers[i].replace(text, std::string::npos, kNotDeclared);
  }
  return answers;
}

// What the reader answers, entry by entry.
class ReaderAnswers {
 public:
  explicit ReaderAnswers(const KEPString& path) : reader_(path) {}

  [[nodiscard]] Texts all() {
    int count = 0;
    reader_.GetNumberOfCommand(count);
    for (int number = 1; number <= count; ++number) addCommand(number);
    count = 0;
    reader_.GetNumberOfMultiListParameter(count);
    for (int number = 1; number <= count; ++number) addList(number);
    count = 0;
    reader_.GetNumberOfFormatParameter(count);
    for (int number = 1; number <= count; ++number) addFormat(number);
    return entries_;
  }

 private:
  void add(const char* section, int number, const KEPString& name, bool read,
           const KEPListValKEPString& content) {
    entries_.push_back(
        entryText(section, number, name, read ? joined(texts(content)) : kNoContent));
  }
  void addNameless(const char* section, int number) {
    entries_.push_back(entryText(section, number, "", kNoName));
  }
  void addCommand(int number) {
    KEPString name;
    if (!reader_.GetNameOfCommand(number, name)) return addNameless("Command", number);
    int sequences = 0;
    KEPListValKEPString lines;
    const bool read = reader_.GetNumberOfSequenceForCommand(number, sequences) &&
                      reader_.GetSyntaxOfCommand(number, lines);
    add("Command", number, name, read, lines);
    for (int sequence = 2; read && sequence <= sequences; ++sequence) {
      lines.RemoveAll();
      const bool there = reader_.GetSyntaxOfSequenceForCommand(name, sequence, lines);
      add("Sequence", sequence, name, there, lines);
    }
  }
  void addList(int number) {
    KEPString name;
    if (!reader_.GetNameOfMultiListParameter(number, name)) return addNameless("List", number);
    KEPListValKEPString values;
    const bool read = reader_.GetValuesOfMultiListParameter(number, values);
    add("List", number, name, read, values);
  }
  void addFormat(int number) {
    KEPString name;
    if (!reader_.GetNameOfFormatParameter(number, name)) return addNameless("Format", number);
    KEPString value;
    const bool read = reader_.GetValueOfFormatParameter(number, value);
    add("Format", number, name, read, listOf({std::string(value.View())}));
  }

  KEPMfgPPTableTxt reader_;
  Texts entries_;
};

// What a load tells, with what the document then holds of each entry.
class LoadedEntries final : public Listener {
 public:
  explicit LoadedEntries(const PPWordDocument& document) : document_(document) {
    host::session().listener = this;
  }
  LoadedEntries(const LoadedEntries&) = delete;
  LoadedEntries& operator=(const LoadedEntries&) = delete;
  ~LoadedEntries() override { host::session().listener = nullptr; }

  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override {
    constexpr const char* kSections[] = {"Command", "Sequence", "List", "Format"};
    entries.push_back(entryText(kSections[static_cast<int>(section)], number, name,
                                content(section, number, name, outcome)));
  }

  Texts entries;

 private:
  [[nodiscard]] std::string content(Section section, int number, std::string_view name,
                                    Outcome outcome) const {
    if (outcome == Outcome::NameUnreadable) return kNoName;
    if (outcome == Outcome::ContentUnreadable) return kNoContent;
    std::string attribute = section == Section::MultiList ? "MultiListValue"
                            : section == Section::Format  ? "Format"
                                                          : "Syntaxe";
    if (section == Section::Sequence) attribute += std::to_string(number);
    // Of a parameter that has a list already no format is loaded, and the reverse.
    if (outcome == Outcome::NotDeclared) return kNotDeclared;
    const KEPISpecAttrAccess_var type = document_.find(name);
    const auto found = type->FindAttribute(attribute);
    std::string text = found ? joined(texts(found->GetTexts())) : kNotDeclared;
    // A later command of this name may leave the lines of a sequence standing and append to them.
    if (section == Section::Sequence) {
      KEPMfgAttributeUtilities::UnsetAttributeValue(document_.find(name), attribute);
    }
    return text;
  }

  const PPWordDocument& document_;
};

// The table with as many ends as starts, so that it passes the check where its lines do.
std::string balanced(std::string table) {
  for (int i = 0; i < 100; ++i) {
    MemorySource source(table);
    const auto fault = faultOfTable(source);
    if (!fault) return table;
    if (fault->key == "ERR_5003") table += "\n*END\n";
    if (fault->key == "ERR_5002") table += "\n*START_SEQUENCE\n";
    if (fault->key != "ERR_5002" && fault->key != "ERR_5003") return table;
  }
  return table;
}

// Moves what fails the check away from column 1.
std::string indented(std::string table) {
  for (const std::string part : {"*COMMENT", "*INSERT X"}) {
    for (std::size_t at = table.find(part); at != std::string::npos; at = table.find(part, at + 2))
      table.insert(at, " ");
  }
  return table;
}

class RandomTables {
 public:
  explicit RandomTables(unsigned seed)
      : maker_(seed), mutator_(seed, "*STARTENDIQUMFGNC_ ,/\n\r%$") {}

  [[nodiscard]] std::string next() {
    std::string table = indented(maker_.table());
    if (maker_.below(8) == 0) table.insert(table.find('\n') + 1, std::string(1024, 'w') + '\n');
    if (!table.empty() && maker_.below(2) == 0) table = mutator_.mutate(table);
    return balanced(table);
  }
  [[nodiscard]] std::size_t below(std::size_t bound) { return maker_.below(bound); }

 private:
  TableMaker maker_;
  Mutator mutator_;
};

TEST(TableReadings, LoadFindsWhatTheReaderFindsInRandomTables) {
  constexpr int kRounds = 600;
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << '\n';
  RandomTables random(seed);
  const TableFile file("");
  int loaded = 0;
  for (int round = 0; round < kRounds && !testing::Test::HasFailure(); ++round) {
    const std::string table = random.next();
    file.write(table);
    const PPWordDocument document;
    LoadedEntries load(document);
    const HRESULT status = document.words->LoadPPWordTable(KEPUnicodeString(file.path().View()));
    ASSERT_EQ(status, KEPMfgPPTableTxt(file.path()).CheckFileSyntax());
    if (status == S_OK) {
      ++loaded;
      EXPECT_EQ(load.entries, loadable(ReaderAnswers(file.path()).all(), load.entries));
    } else {
      EXPECT_EQ(load.entries, Texts{});
    }
    if (testing::Test::HasFailure()) std::cout << "round " << round << ":\n" << table << '\n';
  }
  EXPECT_GT(loaded, kRounds / 3);
}

// What one of the operations of a source gives, with the position behind it.
std::string step(TableSource& source, std::size_t operation, long position) {
  const auto text = [&](const std::optional<std::string_view>& read) {
    return read ? "«" + std::string(*read) + "»" : std::string("end");
  };
  std::string result;
  if (operation == 0) result = source.rewind() ? "rewound" : "not rewound";
  if (operation == 1) result = source.seek(position) ? "moved" : "not moved";
  if (operation == 2) result = text(source.nextLine());
  if (operation > 2) result = text(source.nextToken());
  return result + ' ' + std::to_string(source.position()) + (source.tooLong() ? " too long" : "");
}

TEST(TableReadings, FileAndMemoryGiveTheSameTokensAndLines) {
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << '\n';
  RandomTables random(seed);
  for (int round = 0; round < 200 && !testing::Test::HasFailure(); ++round) {
    std::string table = random.next();
    if (random.below(4) == 0) table += std::string(1020 + random.below(8), 'x') + "\r\nEND";
    const TableFile file(table);
    std::shared_ptr<TableStream> stream;
    bool isOpen = false;
    FileSource inFile(stream, file.path(), isOpen);
    MemorySource inMemory(table);
    ASSERT_TRUE(inFile.rewind());
    for (int i = 0; i < 200 && !testing::Test::HasFailure(); ++i) {
      const std::size_t operation = random.below(8);
      const long position = static_cast<long>(random.below(table.size() + 1)) - (i == 7 ? 1 : 0);
      EXPECT_EQ(step(inMemory, operation, position), step(inFile, operation, position));
    }
    if (testing::Test::HasFailure()) std::cout << "round " << round << ":\n" << table << '\n';
  }
}

TEST(TableReadings, MemoryEndsBehindItsBytes) {
  MemorySource source("AB");
  EXPECT_FALSE(source.seek(-1));
  EXPECT_FALSE(source.seek(3));
  EXPECT_TRUE(source.seek(2));
  EXPECT_FALSE(source.nextToken().has_value());
}

TEST(TableReadings, MemoryGivesSoManyBytesOnly) {
  MemorySource source("AB CD\nEF", 6);
  EXPECT_EQ(source.nextToken(), "AB");
  EXPECT_TRUE(source.seek(0));
  EXPECT_EQ(source.nextLine(), "AB CD\n");
  EXPECT_FALSE(source.nextToken().has_value());
  EXPECT_TRUE(source.rewind());
  EXPECT_FALSE(source.nextToken().has_value());
  EXPECT_FALSE(source.nextLine().has_value());
  EXPECT_FALSE(source.tooLong());
}

TEST(TableReadings, TableMayHaveAGigabyte) { EXPECT_EQ(kMostTableBytes, 1'073'741'824U); }

TEST(TableReadings, BytesOfATableAreBounded) {
  const TableFile file("12345");
  const char* const path = file.path().CastToCharPtr();
  EXPECT_EQ(tableBytes(path), "12345");
  EXPECT_EQ(tableBytes(path, 5), "12345");
  EXPECT_EQ(tableBytes(path, 4), std::nullopt);
  EXPECT_EQ(tableBytes("/"), std::nullopt);
  file.write(std::string(200'000, 'x'));
  EXPECT_EQ(tableBytes(path), std::string(200'000, 'x'));
  file.write("");
  EXPECT_EQ(tableBytes(path), "");
}

}  // namespace
}  // namespace ppword::test
