#pragma once

#include <functional>
#include <string>

namespace veldrin {

/// The exit status of a program that has failed.
inline constexpr int Failed = 1;
/// The exit status of a program that was asked for something wrong.
inline constexpr int Misused = 2;

/// Says a sentence of a program on standard error, on one line. Nothing can be done if that fails.
void complain(const char* program, const std::string& sentence);

/// Says that there is not enough memory, without allocating any.
void complainOfMemory(const char* program);

/// The body of `main` of every program: opens the standard descriptors that are closed, runs the
/// body and returns its exit status. Whatever the body throws is said in one sentence, and the
/// status is `Failed`.
int runProgram(const char* program, const std::function<int()>& body);

}  // namespace veldrin
