// A library to preload. It makes one call to the C library fail. The environment variable
// VELDRIN_FAULT holds the call, its number from 1, and the failure, such as "write 3 ENOSPC". The
// failure is an error, the number of bytes that a write writes, or "onwards" if all later calls
// fail too. These calls count:
//
//   open                  that may create a file
//   write, close, fsync   on a descriptor above 2; writev counts as a write
//   memory                malloc; with number 0 none fails, and their number so far is written to
//                         descriptor 9 at each counted open

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace {

struct Fault {
  std::array<char, 16> call{};
  std::array<char, 16> failure{};
  int number = 0;
  bool isRead = false;
};
Fault wanted;
int count = 0;

using Main = int (*)(int, char**, char**);
Main realMain = nullptr;

/// The function of that name in the next library, usually the C library.
template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// Counts the call if it is wanted. Returns whether it must fail. Counting starts at `main`.
bool fails(std::string_view call) {
  if (!wanted.isRead || call != wanted.call.data()) return false;
  ++count;
  const bool isOnwards = wanted.failure.data() == std::string_view("onwards");
  return wanted.number != 0 && (count == wanted.number || (isOnwards && count > wanted.number));
}

bool isFile(int descriptor) {
  return descriptor > STDERR_FILENO;
}

int errorNumber() {
  constexpr std::pair<std::string_view, int> Errors[] = {
      {"EINTR", EINTR}, {"EIO", EIO}, {"ENOSPC", ENOSPC}, {"EAGAIN", EAGAIN}};
  for (const auto& [name, number] : Errors) {
    if (name == wanted.failure.data()) return number;
  }
  return 0;
}

/// Calls `write`, unless this call must fail or write fewer bytes.
template <class Write>
ssize_t faulty(int descriptor, const char* first, Write write) {
  if (!isFile(descriptor) || !fails("write")) return write();
  errno = errorNumber();
  if (errno != 0) return -1;
  const auto length = static_cast<std::size_t>(std::atoi(wanted.failure.data()));
  static const auto original = next<ssize_t (*)(int, const void*, std::size_t)>("write");
  return length == 0 ? 0 : original(descriptor, first, length);
}

}  // namespace

// Own C++ names, because the headers above declare the names of the C library.
extern "C" {
int startMain(Main main, int argc, char** argv, void (*init)(), void (*fini)(), void (*rtldFini)(),
              void* stackEnd) __asm__("__libc_start_main");
int openFaulty(const char* path, int flags, ...) __asm__("open");
ssize_t writeFaulty(int descriptor, const void* bytes, std::size_t size) __asm__("write");
ssize_t writevFaulty(int descriptor, const iovec* parts, int number) __asm__("writev");
int closeFaulty(int descriptor) __asm__("close");
int fsyncFaulty(int descriptor) __asm__("fsync");
void* mallocFaulty(std::size_t size) __asm__("malloc");
}

// The start code of a program passes its `main` to this function.
int startMain(Main main, int argc, char** argv, void (*init)(), void (*fini)(), void (*rtldFini)(),
              void* stackEnd) {
  realMain = main;
  const auto start = [](int number, char** words, char** variables) {
    const char* const fault = std::getenv("VELDRIN_FAULT");
    if (fault != nullptr) {
      std::sscanf(fault, "%15s %d %15s", wanted.call.data(), &wanted.number, wanted.failure.data());
      wanted.isRead = true;
    }
    return realMain(number, words, variables);
  };
  static const auto original = next<decltype(&startMain)>("__libc_start_main");
  return original(start, argc, argv, init, fini, rtldFini, stackEnd);
}

int openFaulty(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if ((flags & O_CREAT) != 0) {
    if (wanted.isRead && wanted.number == 0) ::dprintf(9, "%d\n", count);
    if (fails("open")) {
      errno = errorNumber();
      return -1;
    }
  }
  static const auto original = next<int (*)(const char*, int, ...)>("open");
  return original(path, flags, mode);
}

ssize_t writeFaulty(int descriptor, const void* bytes, std::size_t size) {
  static const auto original = next<ssize_t (*)(int, const void*, std::size_t)>("write");
  return faulty(descriptor, static_cast<const char*>(bytes),
                [&] { return original(descriptor, bytes, size); });
}

ssize_t writevFaulty(int descriptor, const iovec* parts, int number) {
  static const auto original = next<ssize_t (*)(int, const iovec*, int)>("writev");
  const auto* const first = static_cast<const char*>(parts[0].iov_base);
  return faulty(descriptor, first, [&] { return original(descriptor, parts, number); });
}

int closeFaulty(int descriptor) {
  static const auto original = next<int (*)(int)>("close");
  const int closed = original(descriptor);
  if (!isFile(descriptor) || !fails("close")) return closed;
  // Even a failed close closes the descriptor.
  errno = errorNumber();
  return -1;
}

int fsyncFaulty(int descriptor) {
  static const auto original = next<int (*)(int)>("fsync");
  if (!isFile(descriptor) || !fails("fsync")) return original(descriptor);
  errno = errorNumber();
  return -1;
}

void* mallocFaulty(std::size_t size) {
  static const auto original = next<void* (*)(std::size_t)>("malloc");
  if (!fails("memory")) return original(size);
  errno = ENOMEM;
  return nullptr;
}
