// Compares the year run with the reference in bench/bare. Each benchmark alternates the two, so
// that other load affects both equally, and reports medians:
//
//   ratio        median of the ratios Veldrin time / reference time, one per pair of runs
//   bare_us      median CPU time of the reference, in microseconds
//   veldrin_us   median CPU time of pressing the button in a headless window
//
// Exits with 1 if a ratio exceeds its limit.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "bench/HeldBenchmarks.h"
#include "bench/bare/Bare.h"
#include "daystatus/Veldrin.h"
#include "shell/files/FolderItem.h"

namespace veldrin {
namespace {

constexpr std::int32_t Year = 2030;
constexpr bare::Place Place{47.5, -122.5, -8.0};
constexpr double Limit = 1.3;
constexpr int WarmUps = 20;
constexpr int Repetitions = 1000;

/// The default daylight-saving dates of the year.
const bare::Saving Saving{true, false, bare::firstBound(Year), bare::lastBound(Year)};

/// A folder item whose file discards all lines.
class DiscardingItem final : public Described<DiscardingItem, FolderItem> {
 public:
  static constexpr FixedString FullName = "DiscardingItem";

  std::unique_ptr<WritableFile> create() override { return std::make_unique<File>(); }

 private:
  class File final : public WritableFile {
   public:
    std::int32_t write(std::string_view text, std::string_view end) override {
      benchmark::DoNotOptimize(text);
      benchmark::DoNotOptimize(end);
      return 0;
    }
  };
};

/// A temporary folder; the destructor deletes it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "veldrin-XXXXXX").native();
    if (::mkdtemp(pattern.data()) == nullptr) {
      throw std::system_error(errno, std::generic_category(), pattern);
    }
    path_ = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] std::string file(std::string_view name) const { return (path_ / name).native(); }

 private:
  std::filesystem::path path_;
};

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeBareFile(const std::string& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  bare::writeYear(Place, Saving, Year, [file](std::string_view line) {
    benchmark::DoNotOptimize(::write(file, line.data(), line.size()));
  });
  ::close(file);
}

void fillInWindow() {
  const Ref<Veldrin> window = implicit::Veldrin();
  window->WhichYear()->AddRow(String(std::to_string(Year)));
  window->WhichYear()->userChose(window->WhichYear()->ListCount() - 1);
  window->Latitude()->userTyped("47.5"_s);
  window->Longitude()->userTyped("-122.5"_s);
  window->TimeZone()->userTyped("-8"_s);
  window->TimeZone()->userLeft();
}

void press(const Ref<FolderItem>& item) {
  auto& toolkit = static_cast<HeadlessToolkit&>(InForce<Toolkit>::get());
  toolkit.saveAnswers.push_back(item);
  implicit::Veldrin()->GenerateButton()->userPressed();
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

/// CPU time of the process so far, user and kernel. Unlike wall-clock time it excludes other
/// processes.
double processorMicroseconds() {
  timespec time{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

template <class Work>
double microseconds(const Work& work) {
  const double start = processorMicroseconds();
  work();
  return processorMicroseconds() - start;
}

template <class Bare, class Press>
void alternate(benchmark::State& state, const Bare& bareYear, const Press& veldrinYear) {
  for (int i = 0; i < WarmUps; ++i) {
    bareYear();
    veldrinYear();
  }
  std::vector<double> ratios;
  std::vector<double> bareTimes;
  std::vector<double> veldrinTimes;
  for ([[maybe_unused]] auto iteration : state) {
    // Alternates the order, because each side runs with the caches that the other left.
    const bool isBareFirst = ratios.size() % 2 == 0;
    if (isBareFirst) bareTimes.push_back(microseconds(bareYear));
    veldrinTimes.push_back(microseconds(veldrinYear));
    if (!isBareFirst) bareTimes.push_back(microseconds(bareYear));
    ratios.push_back(veldrinTimes.back() / bareTimes.back());
  }
  const double ratio = median(ratios);
  state.counters["ratio"] = ratio;
  state.counters["limit"] = Limit;
  state.counters["bare_us"] = median(bareTimes);
  state.counters["veldrin_us"] = median(veldrinTimes);
  checkLimit(state, ratio, Limit);
}

/// Compares the year run, its output discarded, with the arithmetic alone.
void againstArithmetic(benchmark::State& state) {
  const Ref<FolderItem> item = New<DiscardingItem>();
  alternate(
      state, [] { benchmark::DoNotOptimize(bare::computeYear(Place, Saving, Year)); },
      [&] { press(item); });
}

/// Compares the year run, into a file, with a loop that writes the same lines, one write() each.
void againstWrites(benchmark::State& state) {
  const TemporaryFolder folder;
  const std::string bareFile = folder.file("bare.ics");
  const std::string veldrinFile = folder.file("veldrin.ics");
  const Ref<FolderItem> item = FolderItem::atPath(String(veldrinFile));
  alternate(
      state, [&] { writeBareFile(bareFile); }, [&] { press(item); });
  const std::string document = contentOf(veldrinFile);
  if (document.empty() || document != contentOf(bareFile)) {
    state.SkipWithError("the two documents differ");
    isLimitBroken = true;
  }
}

BENCHMARK(againstArithmetic)
    ->Name("YearRun/discarded/against/arithmetic")
    ->Iterations(Repetitions)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(againstWrites)
    ->Name("YearRun/file/against/writes")
    ->Iterations(Repetitions)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace veldrin

int main(int count, char** arguments) {
  return veldrin::runHeldBenchmarks(count, arguments, veldrin::fillInWindow);
}
