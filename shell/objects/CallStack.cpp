#include "shell/objects/CallStack.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <string_view>

namespace veldrin {
namespace {

struct Free {
  void operator()(char* text) const { std::free(text); }
};

std::string demangled(const char* symbol) {
  int status = 0;
  const std::unique_ptr<char, Free> name(abi::__cxa_demangle(symbol, nullptr, nullptr, &status));
  return name == nullptr ? symbol : name.get();
}

std::string hexadecimal(std::uintptr_t value) {
  std::array<char, 2 * sizeof value> digits{};
  const auto [end, error] = std::to_chars(digits.begin(), digits.end(), value, 16);
  return "0x" + std::string(digits.begin(), end);
}

std::string nameOf(void* returnAddress) {
  Dl_info info{};
  // A return address may lie just past the end of the calling function: look up the byte before it.
  const void* const call = static_cast<const char*>(returnAddress) - 1;
  const auto address = reinterpret_cast<std::uintptr_t>(call);
  if (dladdr(call, &info) == 0) return hexadecimal(address);
  if (info.dli_sname != nullptr) return demangled(info.dli_sname);
  const std::string_view file = info.dli_fname == nullptr ? "" : info.dli_fname;
  return std::string(file.substr(file.rfind('/') + 1)) + "+" +
         hexadecimal(address - reinterpret_cast<std::uintptr_t>(info.dli_fbase));
}

}  // namespace

void CallStack::capture() {
  constexpr int OwnFrames = 2;  // this function and its caller
  std::array<void*, MaximumDepth + OwnFrames> frames{};
  const int taken = backtrace(frames.data(), static_cast<int>(frames.size()));
  count_ = static_cast<std::size_t>(std::max(taken - OwnFrames, 0));
  std::copy_n(frames.begin() + OwnFrames, count_, frames_.begin());
}

std::vector<std::string> CallStack::names() const {
  std::vector<std::string> all;
  std::transform(frames_.begin(), frames_.begin() + static_cast<std::ptrdiff_t>(count_),
                 std::back_inserter(all), nameOf);
  return all;
}

}  // namespace veldrin
