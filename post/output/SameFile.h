#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace host {

/// What identifies an existing file under all its names.
using FileNumber = std::pair<dev_t, ino_t>;

/// Nothing for a file that is not there or cannot be reached.
[[nodiscard]] std::optional<FileNumber> fileNumber(const std::string& path);

/// True for two names of one regular file. What others read and write as well, such as a device,
/// is none.
[[nodiscard]] bool isSameFile(const std::string& left, const std::string& right);

/// The path that a path leads to through symbolic links, whether a file exists there or not. A
/// ring of links leads to a link.
[[nodiscard]] std::filesystem::path targetOfLinks(std::filesystem::path path);

/// The same as a whole path from the root, to compare it with others.
[[nodiscard]] std::string placeOf(const std::string& path);

/// True for two names of one regular file, or of one place where no file is yet. Links are
/// followed, and "." and ".." count as what they lead to.
[[nodiscard]] bool isSamePlace(const std::string& left, const std::string& right);

/// True for an existing regular file, also through links.
[[nodiscard]] bool isRegularFile(const std::string& path);

}  // namespace host
