#pragma once

#include <chrono>
#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "tools/ppword/Failure.h"
#include "tools/ppword/LoadedTables.h"
#include "tools/ppword/PostRun.h"
#include "tools/ppword/many/Workers.h"

/// The files of one of many jobs.
struct JobFile {
  std::string job;
  std::string output;
};

/// The version of the layout of records for programs.
inline constexpr int kRecordLayout = 1;

/// Posts jobs in this process. Their files are synchronised together in groups, and get their names
/// then: a record is delivered when its file is in its place.
class JobPoster {
 public:
  /// The jobs must outlive the object.
  JobPoster(const PostOptions& options, const std::vector<JobFile>& jobs, RecordTaker deliver);

  /// Posts a job by its place. Whatever fails is its outcome.
  void post(std::size_t index);
  /// Puts the files of the last group in their places.
  void finish();

 private:
  using Clock = std::chrono::steady_clock;
  struct Pending {
    std::size_t index;
    PostOutcome outcome;
    /// Null for a job that is not written.
    std::unique_ptr<PostOutput> text;
  };

  [[nodiscard]] Pending run(std::size_t index);
  /// The text is null for a job that is not written.
  [[nodiscard]] PostOutcome post(const JobFile& job, std::unique_ptr<PostOutput>& text);
  void place();
  void note(const std::exception_ptr& error, Pending& pending) const;

  /// Those of the job that is posted.
  PostOptions options_;
  const std::vector<JobFile>& jobs_;
  RecordTaker deliver_;
  std::size_t mostInGroup_;
  LoadedTables tables_;
  std::vector<Pending> pending_;
  Clock::time_point begin_;
};

/// The record of a job that is not written.
[[nodiscard]] JobRecord failureRecord(const PostOptions& options, const std::vector<JobFile>& jobs,
                                      std::size_t index, const Failure& failure);
