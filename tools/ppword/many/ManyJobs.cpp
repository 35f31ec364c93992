#include <algorithm>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>
#include <vector>

#include "host/system/SystemReason.h"
#include "post/output/OutputFile.h"
#include "post/output/SameFile.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"
#include "tools/ppword/many/JobPoster.h"
#include "tools/ppword/many/Workers.h"

namespace {

// The text of part.jsonl is part.apt.
std::string outputOf(const PostOptions& options, const std::string& job) {
  const std::string name = std::filesystem::path(job).stem().string() + ".apt";
  return (std::filesystem::path(options.outputFolder) / name).string();
}

void requireFiles(const PostOptions& options) {
  const auto& jobs = options.jobs;
  if (std::find(jobs.begin(), jobs.end(), "-") == jobs.end()) return;
  throw UsageError{"--output-dir needs files, not the standard input"};
}

std::vector<JobFile> jobsOf(const PostOptions& options) {
  std::vector<JobFile> jobs;
  std::map<std::string, std::string> taken;
  for (const std::string& job : options.jobs) {
    jobs.push_back({job, outputOf(options, job)});
    const std::string& output = jobs.back().output;
    const auto [known, isNew] = taken.emplace(host::placeOf(output), job);
    if (isNew) continue;
    std::string reason = "the texts of " + known->second;
    reason.append(" and ").append(job).append(" would both be ").append(output);
    throw UsageError{std::move(reason)};
  }
  return jobs;
}

// The document and the table that a job names; none of a job that is refused later.
std::vector<std::string> filesNamedIn(const std::string& job) {
  if (!host::isRegularFile(job)) return {};
  try {
    PostOptions options;
    options.job = job;
    ToolPathInput input(options);
    return {input.documentFile(), input.namedTable()};
  } catch (...) {
    return {};
  }
}

bool isThere(const JobFile& job) { return host::fileNumber(job.output).has_value(); }

// What every job, or one of them, is read from. What jobs name matters only where a text replaces a
// file.
std::map<host::FileNumber, std::string> inputsOf(const PostOptions& options,
                                                 const std::vector<JobFile>& jobs) {
  std::map<host::FileNumber, std::string> inputs;
  std::vector<std::string> files = options.jobs;
  files.insert(files.end(),
               {options.table, options.document, options.tools, options.machine, options.profile});
  const bool replaces = std::any_of(jobs.begin(), jobs.end(), isThere);
  for (const JobFile& job : jobs) {
    if (!replaces) break;
    for (std::string& file : filesNamedIn(job.job)) files.push_back(std::move(file));
  }
  for (const std::string& file : files) {
    if (const auto number = host::fileNumber(file)) inputs.emplace(*number, file);
  }
  return inputs;
}

void requireOthers(const PostOptions& options, const std::vector<JobFile>& jobs) {
  const std::map<host::FileNumber, std::string> inputs = inputsOf(options, jobs);
  for (const JobFile& job : jobs) {
    const auto number = host::fileNumber(job.output);
    const auto input = number ? inputs.find(*number) : inputs.end();
    if (input == inputs.end()) continue;
    throw UsageError{"the output " + job.output + " would replace the input " + input->second};
  }
}

// What a run of many jobs does not have.
void requireMany(const PostOptions& options) {
  const bool isOther = !options.output.empty() || !options.map.empty() || options.listing;
  if (isOther) throw UsageError{"--output-dir takes no -o, --map or --listing"};
  if (options.format == OutputFormat::ForPrograms) {
    throw UsageError{"--output-dir reports each job as it ends: use --format jsonl"};
  }
}

void createFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw host::OutputError(folder, host::systemReason(error.value()));
}

ExitStatus statusOf(const JobRecord& record) { return static_cast<ExitStatus>(record.status); }

// Shows the records as they come, and the totals.
class Records {
 public:
  Records(const PostOptions& options, std::size_t jobs)
      : options_(options),
        jobs_(jobs),
        progress_(
            "jobs", 1, [this] { return share(); }, showsProgress(options.format)) {}

  void take(const JobRecord& record) {
    count(record);
    if (isShown(statusOf(record))) show(record.text, writePartOfOutput);
    progress_.add(1);
  }

  [[nodiscard]] ExitStatus finish() {
    // Programs read the totals as the end of the records.
    const bool isRead = options_.format == OutputFormat::Records;
    if (isRead || isShown(status_)) show(totals(), writeOutput);
    return status_;
  }

 private:
  [[nodiscard]] bool isShown(ExitStatus status) const {
    return !options_.quiet || status != ExitStatus::Done;
  }

  // A file of records is synchronised once, with the totals.
  void show(const std::string& text, void (*writeRecord)(std::string_view)) {
    if (options_.format == OutputFormat::Records) return writeRecord(text);
    progress_.clear();
    writeMessage(text);
  }

  [[nodiscard]] double share() const {
    return static_cast<double>(ended_) / static_cast<double>(jobs_);
  }

  void count(const JobRecord& record) {
    const ExitStatus status = statusOf(record);
    status_ = std::max(status_, status);
    ++ended_;
    const bool isWritten = status == ExitStatus::Done || status == ExitStatus::Unconfirmed;
    if (!isWritten) return;
    ++written_;
    elements_ += record.elements;
    lines_ += record.lines;
  }

  [[nodiscard]] std::string totals() const {
    if (options_.format == OutputFormat::Records) return totalsJson().dump() + '\n';
    return std::to_string(jobs_) + (jobs_ == 1 ? " job: " : " jobs: ") + std::to_string(written_) +
           " written, " + std::to_string(jobs_ - written_) + " not written; " +
           std::to_string(elements_) + " elements, " + std::to_string(lines_) + " lines\n";
  }

  [[nodiscard]] Json totalsJson() const {
    return {{"layout", kRecordLayout},
            {"status", static_cast<int>(status_)},
            {"totals",
             {{"jobs", jobs_},
              {"written", written_},
              {"notWritten", jobs_ - written_},
              {"elements", elements_},
              {"lines", lines_}}}};
  }

  const PostOptions& options_;
  std::size_t jobs_;
  std::size_t ended_ = 0;
  std::size_t written_ = 0;
  long elements_ = 0;
  long lines_ = 0;
  ExitStatus status_ = ExitStatus::Done;
  Progress progress_;
};

// All jobs in this process.
void workHere(const std::vector<JobFile>& jobs, const Work& work, const RecordTaker& take) {
  std::size_t index = 0;
  work([&] { return std::min(index++, jobs.size()); }, take);
}

void workInProcesses(const PostOptions& options, const std::vector<JobFile>& jobs, const Work& work,
                     const RecordTaker& take) {
  const LostTaker takeLost = [&](std::size_t index, const std::string& reason) {
    const Failure failure{ExitStatus::Internal, jobs[index].output + " is not certain to be " +
                                                    "written: its process was ended by " + reason};
    take(failureRecord(options, jobs, index, failure));
  };
  try {
    runInProcesses(jobs.size(), options.processes, work, take, takeLost);
  } catch (const std::system_error&) {
    workHere(jobs, work, take);
  }
}

}  // namespace

ExitStatus postManyJobs(const PostOptions& options) {
  requireMany(options);
  requireFiles(options);
  // Unknown keys are mistakes of the run, not of each job.
  static_cast<void>(Strictness(options.strictness));
  const std::vector<JobFile> jobs = jobsOf(options);
  requireOthers(options, jobs);
  createFolder(options.outputFolder);
  Records records(options, jobs.size());
  const RecordTaker take = [&records](const JobRecord& record) { records.take(record); };
  const Work work = [&](const std::function<std::size_t()>& next, const RecordTaker& send) {
    JobPoster poster(options, jobs, send);
    for (std::size_t index = next(); index < jobs.size(); index = next()) poster.post(index);
    poster.finish();
  };
  if (options.processes == 1) {
    workHere(jobs, work, take);
  } else {
    workInProcesses(options, jobs, work, take);
  }
  return records.finish();
}
