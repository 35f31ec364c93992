#pragma once

#include <string_view>

#include "host/system/LateLibrary.h"
#include "host/system/TextHash.h"

/// The value of an expression of numbers and design parameters, which begins with the parenthesis
/// that it has in a syntax and has no other:
///
///     double result = 0;
///     host::computeExpression("(LENGTH*2+1", {{"LENGTH", 5.0}}, result);  // true, 11
///
/// It is false, and the result unchanged, where the text cannot be computed truthfully, or has no
/// finite value.
extern "C" bool ppwordComputeExpression(std::string_view expression,
                                        const host::TextMap<double>& parameters, double& result);

namespace host {

inline constinit LateLibrary expressionsLibrary("libMfgPPWordExpressions.so",
                                                LateLibrary::Place::Beside);

/// The function above. It is in a library of its own, since what computes expressions brings
/// further libraries, and few runs have one. Where the library is missing, a std::runtime_error is
/// raised.
inline constinit LateFunction<expressionsLibrary, decltype(ppwordComputeExpression)>
    computeExpression("ppwordComputeExpression");

}  // namespace host
