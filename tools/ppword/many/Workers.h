#pragma once

#include <cstddef>
#include <functional>
#include <string>

/// What is said of one of many jobs when it ended.
struct JobRecord {
  /// Its place among the jobs, from 0.
  std::size_t index = 0;
  /// The exit status that a run of this job alone would have.
  int status = 0;
  long elements = 0;
  long lines = 0;
  /// Lines for people, or a line of JSON.
  std::string text;
};

/// Takes each record once, in any order.
using RecordTaker = std::function<void(const JobRecord&)>;

/// What a process does: it takes places of jobs, from 0, from `next`, which returns the number of
/// jobs when none is left, and sends the record of each.
using Work = std::function<void(const std::function<std::size_t()>& next, const RecordTaker& send)>;

/// Takes a job whose process ended early, by its place, and why the process ended.
using LostTaker = std::function<void(std::size_t index, const std::string& reason)>;

/// Runs `work` in processes of their own, `processes` at a time, and takes the records here.
/// Another process takes the jobs that one left which ended early. A system_error, before any
/// record, when no process can be started. An exception of a taker ends the processes and is
/// raised.
void runInProcesses(std::size_t jobs, int processes, const Work& work, const RecordTaker& take,
                    const LostTaker& takeLost);
