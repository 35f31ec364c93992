#include "tests/table/TableFiles.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "src/table/FileSource.h"

namespace {

std::string newPath() {
  std::string path = (std::filesystem::temp_directory_path() / "ppword-table-XXXXXX").string();
  const int descriptor = mkstemp(path.data());
  if (descriptor < 0) std::abort();
  close(descriptor);
  return path;
}

}  // namespace

TableFile::TableFile(std::string_view text) : path_(newPath()) { write(text); }
TableFile::~TableFile() { remove(); }

void TableFile::write(std::string_view text) const {
  std::ofstream(path_.CastToCharPtr(), std::ios::binary) << text;
}

void TableFile::remove() const { std::remove(path_.CastToCharPtr()); }

std::string KEPMfgPPTableTxtTest::nextToken() {
  ppword::FileSource source(reader_.stream_, reader_.path_, reader_.isOpen_);
  return std::string(source.nextToken().value_or("(end of file)"));
}

void KEPMfgPPTableTxtTest::breakClose() { close(fileno(reader_.stream_->file())); }

Texts texts(const KEPListValKEPString& list) {
  Texts result;
  for (const KEPString& text : list) result.emplace_back(text.View());
  return result;
}

KEPListValKEPString listOf(const Texts& texts) {
  KEPListValKEPString list;
  for (const std::string& text : texts) list.Append(text);
  return list;
}

std::vector<int> numbers(const KEPRawCollint& list) { return {list.begin(), list.end()}; }

int openFiles() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return static_cast<int>(std::distance(begin(descriptors), end(descriptors)));
}
