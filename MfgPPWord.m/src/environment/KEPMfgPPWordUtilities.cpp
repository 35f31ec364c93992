#include "KEPMfgPPWordUtilities.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "Manufacturing/KEPMfgInternalError.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgNames.h"
#include "src/environment/TableLocation.h"
#include "src/environment/WordList.h"

namespace {

using Reader = std::unique_ptr<KEPMfgPPTableTxt>;

struct FixedWord {
  const char* word;
  int kind;
  int code;
};
constexpr FixedWord kFixedWords[] = {{"TPRINT", 3, 1075}, {"NOTE", 4, 181}};

bool loadingIsSwitchedOff() {
  static const bool isSet = !KEPMfgEnvVarMgt::Get("MFG_PPTABLE_NOLOAD").IsEmpty();
  return isSet;
}

HRESULT raiseLocationError(std::string_view key) {
  constexpr int kTableLocationError = 3;
  auto error = std::make_unique<KEPMfgInternalError>(key, "ManufacturingError");
  error->SetInformationOnErrorType(kTableLocationError);
  return KEPError::GetReturn(std::move(error));
}

HRESULT appendWords(KEPMfgPPTableTxt& table, KEPListValKEPString& words, KEPRawCollint& kinds,
                    KEPRawCollint& codes) {
  if (!table.GetListOfAptWord(kinds, words) || !table.GetListOfNcCode(codes)) return E_FAIL;
  for (const FixedWord& fixed : kFixedWords) {
    if (words.Locate(fixed.word) != 0) continue;
    // deliberate: at the end of each list, also where the codes are fewer than the words
    words.Append(fixed.word);
    kinds.Append(fixed.kind);
    codes.Append(fixed.code);
  }
  return S_OK;
}

// `from` is a program or a path.
template <class From>
HRESULT storeWords(const From& from) {
  auto& list = ppword::wordList();
  list.emplace();
  KEPListValKEPString words;
  KEPRawCollint kinds;
  KEPRawCollint codes;
  const HRESULT status = KEPMfgPPWordUtilities::GetListOfPPWords(from, words, kinds, codes);
  list.emplace(std::move(words), std::move(kinds), std::move(codes));
  return status;
}

KEPListValKEPUnicodeString linesOf(const KEPUnicodeString& text) {
  KEPListValKEPUnicodeString lines;
  std::string_view rest = text.View();
  // deliberate: a text of one line keeps its line end
  if (!rest.empty() && rest.find('\n') >= rest.size() - 1) {
    lines.Append(text);
    return lines;
  }
  while (!rest.empty()) {
    const std::size_t feed = std::min(rest.find('\n'), rest.size());
    const bool endsWithReturn = feed > 0 && feed < rest.size() && rest[feed - 1] == '\r';
    lines.Append(rest.substr(0, endsWithReturn ? feed - 1 : feed));
    rest.remove_prefix(std::min(feed + 1, rest.size()));
  }
  return lines;
}

}  // namespace

KEPMfgPPWordUtilities::KEPMfgPPWordUtilities() = default;
KEPMfgPPWordUtilities::KEPMfgPPWordUtilities(const KEPMfgPPWordUtilities& other) = default;
KEPMfgPPWordUtilities& KEPMfgPPWordUtilities::operator=(const KEPMfgPPWordUtilities& other) =
    default;
KEPMfgPPWordUtilities::~KEPMfgPPWordUtilities() = default;

int KEPMfgPPWordUtilities::BuildCompletePathFromPPWordTableName(const KEPUnicodeString& tableName,
                                                                KEPUnicodeString& path) {
  auto found = ppword::tablePath(tableName);
  if (!found) return 0;
  path = *std::move(found);
  return 1;
}

HRESULT KEPMfgPPWordUtilities::InitializePPWordsEnvironment(const KEPIMfgProgram_var& program,
                                                            int* found) {
  *found = 0;
  if (loadingIsSwitchedOff()) return S_OK;
  const KEPIMfgResource_var resource = ppword::resourceOf(program);
  if (!resource) return S_OK;
  KEPUnicodeString name;
  // deliberate: a resource without table name is no error here
  static_cast<void>(resource->GetValue(MfgPPWordTable, name));
  KEPUnicodeString path;
  *found = BuildCompletePathFromPPWordTableName(name, path);
  if (*found == 0) return S_OK;
  KEPIMfgRootContainer_var root;
  KEPMfgModelUtilities::GetRootContainer(program, root);
  return root->GetPPWordContainer()->LoadPPWordTable(path);
}

HRESULT KEPMfgPPWordUtilities::GetPPTable(const KEPIMfgProgram_var& program, Reader& reader) {
  const KEPIMfgResource_var resource = ppword::resourceOf(program);
  if (!resource) return raiseLocationError("ERR_5011");
  KEPUnicodeString name;
  if (KEPFailed(resource->GetValue(MfgPPWordTable, name))) return raiseLocationError("ERR_5010");
  KEPUnicodeString path;
  if (BuildCompletePathFromPPWordTableName(name, path) == 0) return raiseLocationError("ERR_5015");
  return GetPPTable(path, reader);
}

HRESULT KEPMfgPPWordUtilities::GetPPTable(const KEPUnicodeString& path, Reader& reader) {
  reader = std::make_unique<KEPMfgPPTableTxt>(KEPString(path.View()));
  return S_OK;
}

HRESULT KEPMfgPPWordUtilities::GetListOfSyntaxes(const KEPIMfgProgram_var& program,
                                                 KEPListValKEPString& syntaxes) {
  Reader reader;
  const HRESULT status = GetPPTable(program, reader);
  if (KEPFailed(status)) return status;
  return reader->GetListOfSyntaxes(syntaxes) ? S_OK : E_FAIL;
}

HRESULT KEPMfgPPWordUtilities::GetListOfPPWords(const KEPIMfgProgram_var& program,
                                                KEPListValKEPString& words, KEPRawCollint& kinds,
                                                KEPRawCollint& codes) {
  Reader reader;
  const HRESULT status = GetPPTable(program, reader);
  return KEPFailed(status) ? status : appendWords(*reader, words, kinds, codes);
}

HRESULT KEPMfgPPWordUtilities::GetListOfPPWords(const KEPUnicodeString& path,
                                                KEPListValKEPString& words, KEPRawCollint& kinds,
                                                KEPRawCollint& codes) {
  KEPMfgPPTableTxt table(KEPString(path.View()));
  return appendWords(table, words, kinds, codes);
}

HRESULT KEPMfgPPWordUtilities::StoreListOfPPWords(const KEPIMfgProgram_var& program) {
  return storeWords(program);
}

HRESULT KEPMfgPPWordUtilities::StoreListOfPPWords(const KEPUnicodeString& path) {
  return storeWords(path);
}

HRESULT KEPMfgPPWordUtilities::DeleteListOfPPWords() {
  ppword::wordList().reset();
  return S_OK;
}

HRESULT KEPMfgPPWordUtilities::GetClfileCode(const KEPString& word, int& kind, int& code) {
  const auto& list = ppword::wordList();
  if (!list) return E_FAIL;
  // deliberate: a word that begins with a blank is looked up as it stands
  const std::size_t blank = word.View().find(' ');
  const auto entry = list->find(blank == 0 ? word.View() : word.View().substr(0, blank));
  if (!entry) return E_FAIL;
  kind = entry->kind;
  code = entry->code;
  return S_OK;
}

HRESULT KEPMfgPPWordUtilities::GetAptWord(int code, KEPString& word) {
  const auto& list = ppword::wordList();
  const KEPString* const found = list ? list->wordOf(code) : nullptr;
  if (found == nullptr) return E_FAIL;
  word = *found;
  return S_OK;
}

HRESULT KEPMfgPPWordUtilities::SplitKEPUnicodeStringWithLF(const KEPUnicodeString& text,
                                                           KEPListValKEPUnicodeString& lines) {
  lines = linesOf(text);
  return S_OK;
}
