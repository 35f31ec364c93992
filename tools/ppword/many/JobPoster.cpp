#include "tools/ppword/many/JobPoster.h"

#include <sys/resource.h>

#include <algorithm>
#include <exception>
#include <nlohmann/json.hpp>
#include <utility>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Failure.h"

namespace {

// A file that waits for its name is open, and so is its folder.
std::size_t mostInGroup() {
  constexpr rlim_t kMost = 64;
  constexpr rlim_t kOthers = 24;
  rlimit open{};
  if (::getrlimit(RLIMIT_NOFILE, &open) != 0 || open.rlim_cur <= kOthers) return 1;
  return static_cast<std::size_t>(std::clamp((open.rlim_cur - kOthers) / 2, rlim_t{1}, kMost));
}

// A record waits no longer for others to join its group.
constexpr std::chrono::milliseconds kLongestWait{500};

PostOutcome failureOutcome(const JobFile& job, const Failure& failure) {
  PostOutcome outcome;
  outcome.status = failure.status;
  const bool isMistake = failure.status == ExitStatus::Usage;
  outcome.text = isMistake ? host::terminalSafe(job.job + ": error: " + failure.reason) + '\n'
                           : failureText(failure);
  outcome.report = {{"file", textJson(job.job)},
                    {"output", textJson(job.output)},
                    {"written", false},
                    {"diagnostics", Json::array({failureJson(failure)})}};
  return outcome;
}

JobRecord recordOf(const PostOptions& options, std::size_t index, const PostOutcome& outcome) {
  JobRecord record{index, static_cast<int>(outcome.status), outcome.elements, outcome.lines,
                   outcome.text};
  if (options.format == OutputFormat::ForPeople) return record;
  Json json{{"layout", kRecordLayout}, {"status", static_cast<int>(outcome.status)}};
  json.update(outcome.report);
  record.text = json.dump() + '\n';
  return record;
}

}  // namespace

JobPoster::JobPoster(const PostOptions& options, const std::vector<JobFile>& jobs,
                     RecordTaker deliver)
    : options_(options), jobs_(jobs), deliver_(std::move(deliver)), mostInGroup_(mostInGroup()) {
  options_.jobs.clear();
}

void JobPoster::post(std::size_t index) {
  if (pending_.empty()) begin_ = Clock::now();
  pending_.push_back(run(index));
  if (pending_.size() >= mostInGroup_ || Clock::now() - begin_ >= kLongestWait) place();
}

void JobPoster::finish() { place(); }

JobPoster::Pending JobPoster::run(std::size_t index) {
  Pending pending{index, {}, nullptr};
  try {
    pending.outcome = post(jobs_[index], pending.text);
  } catch (...) {
    pending.outcome = failureOutcome(jobs_[index], currentFailure());
    pending.text.reset();
  }
  return pending;
}

PostOutcome JobPoster::post(const JobFile& job, std::unique_ptr<PostOutput>& text) {
  options_.job = job.job;
  options_.output = job.output;
  return postToolPath(options_, &tables_,
                      [&text](std::unique_ptr<PostOutput> written, PostMap*, PostOutcome&) {
                        written->complete();
                        text = std::move(written);
                      });
}

void JobPoster::place() {
  std::vector<host::OutputFile*> texts;
  for (const Pending& pending : pending_) {
    if (pending.text) texts.push_back(&pending.text->file());
  }
  const auto errors = host::OutputFile::finishTogether(texts);
  auto error = errors.begin();
  for (Pending& pending : pending_) {
    if (pending.text) note(*error++, pending);
    deliver_(recordOf(options_, pending.index, pending.outcome));
  }
  pending_.clear();
}

// What became of a text that was to be put in its place.
void JobPoster::note(const std::exception_ptr& error, Pending& pending) const {
  try {
    if (error) std::rethrow_exception(error);
    pending.outcome.addDoubt(pending.text->file());
  } catch (...) {
    pending.outcome = failureOutcome(jobs_[pending.index], currentFailure());
  }
}

JobRecord failureRecord(const PostOptions& options, const std::vector<JobFile>& jobs,
                        std::size_t index, const Failure& failure) {
  return recordOf(options, index, failureOutcome(jobs[index], failure));
}
