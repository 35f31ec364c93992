#pragma once

#include <string>

#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"

/// Why a command, or one of many jobs, ended early.
struct Failure {
  ExitStatus status = ExitStatus::Internal;
  std::string reason;
  /// The reader of the standard output went away: nothing is to be said.
  bool isSilent = false;
};

/// What the exception means that is being handled.
[[nodiscard]] Failure currentFailure();

/// For people, a line; for programs.
[[nodiscard]] std::string failureText(const Failure& failure);
[[nodiscard]] Json failureJson(const Failure& failure);

/// Says why a command failed, in the form that its arguments ask for. Returns the status.
ExitStatus reportFailure(const Failure& failure, bool forPrograms);
