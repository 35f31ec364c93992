#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "tools/ppword/Options.h"

/// A mistake in the arguments of a command; what() tells it.
class ArgumentError : public std::invalid_argument {
 public:
  using std::invalid_argument::invalid_argument;
};

/// What 'ppword document ACTION FILE ARGUMENT...' asks for, the output format aside. An
/// ArgumentError for an action that there is none of, and for arguments that it does not take.
[[nodiscard]] DocumentOptions documentOptions(const std::string& action, const std::string& file,
                                              const std::vector<std::string>& arguments);
