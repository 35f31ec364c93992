#include "inspect/diagnostics/TableBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "inspect/diagnostics/TableFile.h"
#include "tests/table/TableFiles.h"

namespace host {
namespace {

// Lines of any length: many to a block of bytes, and many blocks to a line.
std::string linesOfAnyLength() {
  std::string table;
  for (const int length : {0, 0, 3, 511, 0, 512, 1, 2000, 0, 7, 510, 1300}) {
    table += std::string(static_cast<std::size_t>(length), 'x') + '\n';
  }
  for (int i = 0; i < 1000; ++i) table += i % 3 == 0 ? "\n" : "y\n";
  return table + "last";
}

TEST(TableBytes, EachByteHasItsLineAndColumn) {
  const std::string table = linesOfAnyLength();
  const TableBytes bytes(table);
  long line = 1;
  long column = 1;
  for (std::size_t at = 0; at <= table.size(); ++at) {
    const auto place = bytes.placeOf(at);
    ASSERT_EQ(place.line, line) << at;
    ASSERT_EQ(place.column, column) << at;
    ++column;
    if (at == table.size() || table[at] != '\n') continue;
    ++line;
    column = 1;
  }
}

TEST(TableBytes, EachLineHasItsExcerpt) {
  const std::string table = linesOfAnyLength();
  const TableBytes bytes(table);
  long line = 0;
  for (std::size_t from = 0; from <= table.size();) {
    const std::size_t end = std::min(table.find('\n', from), table.size());
    const Excerpt excerpt = bytes.excerptAt(++line, 1);
    ASSERT_EQ(excerpt.text, table.substr(from, end - from).substr(0, 401)) << line;
    ASSERT_EQ(excerpt.firstColumn, 1);
    ASSERT_EQ(excerpt.goesOn, end - from > 401) << line;
    from = end + 1;
  }
  EXPECT_EQ(line, 1013);
}

TEST(TableBytes, ExcerptReaches400BytesToBothSides) {
  std::string line;
  for (int i = 0; i < 1000; ++i) line += static_cast<char>('a' + i % 26);
  const TableBytes bytes("\n" + line + "\r\n");
  const Excerpt middle = bytes.excerptAt(2, 500);
  EXPECT_EQ(middle.text, line.substr(99, 801));
  EXPECT_EQ(middle.firstColumn, 100);
  EXPECT_TRUE(middle.goesOn);
  const Excerpt end = bytes.excerptAt(2, 1001);
  EXPECT_EQ(end.text, line.substr(600));
  EXPECT_EQ(end.firstColumn, 601);
  EXPECT_FALSE(end.goesOn);
}

TEST(TableBytes, ColumnAfterTheEndIsEmpty) {
  const Excerpt excerpt = excerptOf("short", 1000);
  EXPECT_EQ(excerpt.text, "");
  EXPECT_EQ(excerpt.firstColumn, 600);
  EXPECT_FALSE(excerpt.goesOn);
}

TEST(TableBytes, FileThatCannotBeReadIsAnError) {
  const TableFile file("text");
  EXPECT_EQ(TableBytes::read(std::string(file.path().View())).text(), "text");
  file.remove();
  try {
    static_cast<void>(TableBytes::read(std::string(file.path().View())));
    FAIL() << "nothing was raised";
  } catch (const UnreadableTable& unreadable) {
    EXPECT_EQ(unreadable.diagnostic.key, "ERR_5009");
    EXPECT_EQ(unreadable.diagnostic.message,
              "the PP word table cannot be opened: No such file or directory");
  }
}

TEST(TableFile, ReasonsAreThoseOfTheSystem) {
  const TableFile file("text");
  const std::string path(file.path().View());
  for (const int error : {ENOENT, ENOTDIR, EACCES, EPERM, ELOOP, ENAMETOOLONG, EIO, EBADF, EMFILE,
                          ENFILE, ENOMEM, ESTALE, EDOM}) {
    EXPECT_EQ(unreadableTable(path, error).message,
              std::string("the PP word table cannot be opened: ") + ::strerrordesc_np(error));
  }
  EXPECT_EQ(unreadableTable(path, 0).message,
            "the PP word table cannot be opened: it changes while it is read");
}

}  // namespace
}  // namespace host
