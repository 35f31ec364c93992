#include "host/system/ResourceFolders.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "Manufacturing/KEPMfgUtilities.h"
#include "System/KEPMakePath.h"
#include "tests/support/Folders.h"

namespace {

using Texts = std::vector<std::string>;

// "directory name" of each file, the directories without those of the test.
Texts listed(const Folders& folders) {
  KEPListValKEPUnicodeString directories;
  KEPListValKEPUnicodeString files;
  directories.Append("before");
  files.Append("before");
  KEPMfgUtilities::GetListOfMfgFilesAndDirectories("PPTables", directories, files, 1);
  EXPECT_EQ(directories.Size(), files.Size());
  Texts result;
  for (int i = 1; i <= files.Size(); ++i) {
    const std::string directory(directories[i].View());
    EXPECT_TRUE(directory.starts_with(folders.path("")));
    result.push_back(directory.substr(folders.path("").size()) + ' ' +
                     std::string(files[i].View()));
  }
  return result;
}

std::string joined(std::string_view directory, std::string_view name) {
  KEPString path = "before";
  KEPMakePath(directory, name, path);
  return std::string(path.View());
}

TEST(ResourceFolders, FilesComeFolderByFolderInTheOrderOfTheirBytes) {
  const Folders folders;
  for (const char* name :
       {"a/PPTables/mill", "a/PPTables/Mill", "a/PPTables/lathe.txt", "b/PPTables/zulu",
        "b/PPTables/\xC3\xA4", "b/PPTables/10", "b/PPTables/9"})
    folders.file(name);
  folders.search("b:a");
  EXPECT_EQ(listed(folders),
            (Texts{"b/PPTables 10", "b/PPTables 9", "b/PPTables zulu", "b/PPTables \xC3\xA4",
                   "a/PPTables Mill", "a/PPTables lathe.txt", "a/PPTables mill"}));
}

TEST(ResourceFolders, FileOfTheSameNameInASecondFolderIsListedAgain) {
  const Folders folders;
  folders.file("a/PPTables/mill");
  folders.file("b/PPTables/mill");
  folders.search("a:b");
  EXPECT_EQ(listed(folders), (Texts{"a/PPTables mill", "b/PPTables mill"}));
}

TEST(ResourceFolders, WithoutSearchListNothingIsListed) {
  const Folders folders;
  folders.file("a/PPTables/mill");
  folders.search("");
  EXPECT_EQ(listed(folders), Texts{});
}

TEST(ResourceFolders, OnlyTheNamedFolderIsListed) {
  const Folders folders;
  folders.file("a/PPTables/mill");
  folders.file("a/pptables/other");
  folders.file("a/mill2");
  folders.search("a");
  EXPECT_EQ(listed(folders), Texts{"a/PPTables mill"});
}

TEST(ResourceFolders, EmptyEntriesAndAbsentDirectoriesOfTheListArePassedOver) {
  const Folders folders;
  folders.file("a/PPTables/mill");
  folders.directory("b");
  folders.search(":absent::b:a:");
  EXPECT_EQ(listed(folders), Texts{"a/PPTables mill"});
}

TEST(ResourceFolders, FolderThatTheListNamesTwiceIsListedOnce) {
  const Folders folders;
  folders.file("a/PPTables/mill");
  folders.link(folders.path("a"), "same");
  folders.search("a:same:a/:a");
  EXPECT_EQ(listed(folders), Texts{"a/PPTables mill"});
}

TEST(ResourceFolders, DirectoriesAndPipesAreNoFiles) {
  const Folders folders;
  folders.file("a/PPTables/inner/mill");
  ASSERT_EQ(mkfifo(folders.path("a/PPTables/pipe").c_str(), 0600), 0);
  folders.search("a");
  EXPECT_EQ(listed(folders), Texts{});
}

TEST(ResourceFolders, LinksAreFollowedInsideTheirFolderOnly) {
  const Folders folders;
  folders.file("a/PPTables/mill");
  folders.file("a/PPTables/inner/deep");
  folders.file("outside");
  folders.link("mill", "a/PPTables/good");
  folders.link("good", "a/PPTables/twice");
  folders.link("inner", "a/PPTables/dir");
  folders.link("../../outside", "a/PPTables/up");
  folders.link(folders.path("outside"), "a/PPTables/absolute");
  folders.link("inner/deep", "a/PPTables/down");
  folders.link("absent", "a/PPTables/dangling");
  folders.link("loop", "a/PPTables/loop");
  folders.search("a");
  EXPECT_EQ(listed(folders), (Texts{"a/PPTables good", "a/PPTables mill", "a/PPTables twice"}));
  const auto found = host::resourceFolders("PPTables");
  ASSERT_EQ(found.size(), 1U);
  Texts passed;
  for (const auto& entry : found[0].passedOver) passed.push_back(entry.name + ": " + entry.reason);
  EXPECT_EQ(passed,
            (Texts{"absolute: the link leads out of the folder", "dangling: the link leads nowhere",
                   "down: the link leads out of the folder", "loop: the link leads nowhere",
                   "up: the link leads out of the folder"}));
}

TEST(ResourceFolders, FolderThatIsALinkIsFollowed) {
  const Folders folders;
  folders.file("shared/mill");
  folders.directory("a");
  folders.link(folders.path("shared"), "a/PPTables");
  folders.search("a");
  EXPECT_EQ(listed(folders), Texts{"a/PPTables mill"});
}

TEST(ResourceFolders, FolderThatCannotBeListedSaysWhy) {
  const Folders folders;
  folders.file("a/PPTables");
  folders.directory("b");
  folders.link("PPTables", "b/PPTables");
  folders.search("a:b");
  const auto found = host::resourceFolders("PPTables");
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].path, folders.path("a/PPTables"));
  EXPECT_EQ(found[0].problem, "Not a directory");
  EXPECT_EQ(found[1].problem, "Too many levels of symbolic links");
  EXPECT_EQ(listed(folders), Texts{});
}

TEST(MakePath, OneSlashStandsBetweenDirectoryAndName) {
  EXPECT_EQ(joined("/tables", "mill"), "/tables/mill");
  EXPECT_EQ(joined("/tables/", "mill"), "/tables/mill");
  EXPECT_EQ(joined("/", "mill"), "/mill");
  EXPECT_EQ(joined("", "mill"), "mill");
}

TEST(MakePath, PathsMayHaveAnyLength) {
  const std::string directory(100'000, 'd');
  const std::string name(100'000, 'n');
  EXPECT_EQ(joined(directory, name), directory + "/" + name);
}

TEST(MakePath, PathMayBeOneOfTheArguments) {
  KEPString path = "/tables";
  KEPMakePath(path, "mill", path);
  EXPECT_EQ(path.View(), "/tables/mill");
}

}  // namespace
