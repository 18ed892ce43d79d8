#pragma once

#include <functional>

namespace veldrin {

/// The exit status after a failure.
inline constexpr int Failed = 1;
/// The exit status for invalid options or arguments.
inline constexpr int Misused = 2;

/// The body of `main` of every program: opens the standard descriptors that are closed, runs `body`
/// and returns the exit status of `body`. Reports an exception in one line on standard error and
/// then returns `Failed`.
int runProgram(const char* program, const std::function<int()>& body);

}  // namespace veldrin
