// A library to be loaded ahead of the C library. It lets one call of the system fail, as the
// environment variable VELDRIN_FAULT says: the call, which one of them, and how, such as
// "write 3 ENOSPC". A how of digits is a write of so many bytes.
//
//   open     that makes a file
//   write    to what was made, or to a copy of a standard descriptor
//   close    of the same
//   fsync    of the same
//   memory   a block of memory; 0 counts those until a file is made, and says how many on
//   descriptor 9

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

struct Wanted {
  std::array<char, 16> call{};
  std::array<char, 16> how{};
  int which = 0;
  bool read = false;
};
Wanted wanted;
int count = 0;

using Main = int (*)(int, char**, char**);
Main realMain = nullptr;

/// The call of that name behind this library.
template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// Whether the call at hand is the one to fail. Nothing counts before the program's `main`.
bool fails(std::string_view call) {
  if (!wanted.read || call != wanted.call.data()) return false;
  ++count;
  const bool onwards = std::strcmp(wanted.how.data(), "onwards") == 0;
  return wanted.which != 0 && (count == wanted.which || (onwards && count > wanted.which));
}

bool isFile(int descriptor) {
  return descriptor > STDERR_FILENO;
}

int errorNumber() {
  struct Name {
    const char* name;
    int number;
  };
  constexpr Name Names[] = {{"EINTR", EINTR}, {"EIO", EIO}, {"ENOSPC", ENOSPC}, {"EAGAIN", EAGAIN}};
  for (const auto& [name, number] : Names) {
    if (std::strcmp(wanted.how.data(), name) == 0) return number;
  }
  return 0;
}

/// A write of no more than was asked for, or none at all.
template <class Write>
ssize_t faulty(int descriptor, const char* first, Write write) {
  if (!isFile(descriptor) || !fails("write")) return write();
  errno = errorNumber();
  if (errno != 0) return -1;
  const auto length = static_cast<std::size_t>(std::atoi(wanted.how.data()));
  static const auto original = next<ssize_t (*)(int, const void*, std::size_t)>("write");
  return length == 0 ? 0 : original(descriptor, first, length);
}

}  // namespace

// The C library's own names, which are bound to functions of other ones, because its declarations
// are there as well.
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

// The program's start hands its `main` to this one.
int startMain(Main main, int argc, char** argv, void (*init)(), void (*fini)(), void (*rtldFini)(),
              void* stackEnd) {
  realMain = main;
  const auto start = [](int words, char** text, char** settings) {
    const char* const fault = std::getenv("VELDRIN_FAULT");
    if (fault != nullptr) {
      std::sscanf(fault, "%15s %d %15s", wanted.call.data(), &wanted.which, wanted.how.data());
      wanted.read = true;
    }
    return realMain(words, text, settings);
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
    if (wanted.read && wanted.which == 0) ::dprintf(9, "%d\n", count);
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
  // The descriptor has gone all the same.
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
