// veldrin-bare-calendar LAT LON ZONE YEAR FILE [nodst] [downunder]
//
// Writes the calendar of a year with its default daylight-saving dates, one write() per line.

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "Bare.h"

namespace {

constexpr std::string_view kUsage =
    "usage: veldrin-bare-calendar LAT LON ZONE YEAR FILE [nodst] [downunder]\n";

template <class Number>
bool parse(std::string_view text, Number& number) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

bool writeAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count > 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      return false;
    }
  }
  return true;
}

int fail(std::string_view message, int status) {
  writeAll(STDERR_FILENO, message);
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  bare::Place place{};
  std::int32_t year = 0;
  if (argc < 6 || !parse(argv[1], place.latitude) || !parse(argv[2], place.longitude) ||
      !parse(argv[3], place.zone) || !parse(argv[4], year)) {
    return fail(kUsage, 2);
  }
  bare::Saving saving{true, false, bare::firstBound(year), bare::lastBound(year)};
  for (int i = 6; i < argc; ++i) {
    const std::string_view flag = argv[i];
    if (flag == "nodst") {
      saving.on = false;
    } else if (flag == "downunder") {
      saving.downUnder = true;
    } else {
      return fail(kUsage, 2);
    }
  }

  const int file = ::open(argv[5], O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return fail("veldrin-bare-calendar: cannot open the file\n", 1);
  bool isWritten = true;
  bare::writeYear(place, saving, year,
                  [&](std::string_view line) { isWritten = isWritten && writeAll(file, line); });
  isWritten = ::close(file) == 0 && isWritten;
  return isWritten ? 0 : fail("veldrin-bare-calendar: cannot write the file\n", 1);
}
