#include "tools/ppword/Failure.h"

#include <cerrno>
#include <exception>
#include <new>
#include <nlohmann/json.hpp>

#include "System/KEPError.h"
#include "host/document/DocumentError.h"
#include "host/system/SystemReason.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "post/output/OutputFile.h"
#include "tools/ppword/StandardStreams.h"

namespace {

Failure outputFailure(const host::OutputError& error) {
  const bool isClosed = error.reason() == host::systemReason(EPIPE);
  return {ExitStatus::NotWritten, error.file() + " cannot be written: " + error.reason(), isClosed};
}

Failure documentFailure(const host::DocumentError& error) {
  const bool isSaved = error.kind() == host::DocumentError::Kind::NotCertain;
  return {isSaved ? ExitStatus::Unconfirmed : ExitStatus::NotWritten,
          error.file() + ' ' + error.reason()};
}

}  // namespace

Failure currentFailure() {
  try {
    throw;
  } catch (const UsageError& error) {
    return {ExitStatus::Usage, error.message};
  } catch (const host::OutputError& error) {
    return outputFailure(error);
  } catch (const host::DocumentError& error) {
    return documentFailure(error);
  } catch (const KEPError& error) {
    return {ExitStatus::Internal, std::string(error.GetNLSMessage().View())};
  } catch (const std::bad_alloc&) {
    return {ExitStatus::Internal, "there is not enough memory"};
  } catch (const std::exception& error) {
    return {ExitStatus::Internal, error.what()};
  } catch (...) {
    return {ExitStatus::Internal, "an unknown error occurred"};
  }
}

std::string failureText(const Failure& failure) {
  return "ppword: error: " + host::terminalSafe(failure.reason) + '\n';
}

Json failureJson(const Failure& failure) {
  return {{"severity", "error"}, {"message", textJson(failure.reason)}};
}

ExitStatus reportFailure(const Failure& failure, bool forPrograms) {
  if (failure.isSilent) return failure.status;
  const Json report{{"status", static_cast<int>(failure.status)},
                    {"diagnostics", Json::array({failureJson(failure)})}};
  writeMessage(forPrograms ? documentText(report) : failureText(failure));
  return failure.status;
}
