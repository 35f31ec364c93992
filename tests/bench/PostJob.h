#pragma once

#include <filesystem>

/// A job of a million points, a thousand in each line, in a file that goes with the object.
class PostJob {
 public:
  static constexpr int kPoints = 1'000'000;
  static constexpr int kPointsOfALine = 1'000;

  PostJob();
  PostJob(const PostJob&) = delete;
  PostJob& operator=(const PostJob&) = delete;
  ~PostJob();

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

  /// Coordinates of a point, by its number from 0.
  [[nodiscard]] static double x(int number) { return number % 1000 * 0.25 - 125.0; }
  [[nodiscard]] static double y(int number) {
    const int row = number / 1000;
    return row * 0.125;
  }
  [[nodiscard]] static double z(int number) { return number % 64 * 0.0625 - 2.0; }

 private:
  std::filesystem::path path_;
};

/// Peak memory in MiB of a process of its own that runs `ppword post` on such a job; negative when
/// it fails.
[[nodiscard]] double peakMemoryOfPost();
