#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/Fuzz.h"
#include "shell/objects/Failure.h"
#include "shell/objects/StringImage.h"

// Any bytes as an image, or any texts written, read and damaged.

namespace veldrin::fuzz {
namespace {

using Image = std::vector<std::uint8_t>;

/// What is read of any bytes is damage within them, or texts that make the same bytes again.
void checkReading(const Image& image, std::uint32_t address) {
  const auto [strings, damage] = readStringImage(image, address);
  if (damage) {
    require(damage->offset <= image.size(), "damage lies in the image");
    require(strings.empty(), "of a damaged image nothing is read");
  } else {
    require(writeStringImage(strings, address) == image, "what was read makes the same image");
  }
}

std::vector<String> textsOf(FuzzedDataProvider& input) {
  std::vector<String> texts;
  while (input.ConsumeBool() && texts.size() < 20) {
    const std::uint32_t encoding = input.ConsumeBool() ? Encoding::UTF8 : Encoding::ASCII;
    const std::string text =
        input.ConsumeBool() ? std::string(input.ConsumeIntegralInRange<std::size_t>(0, 600), 'x')
                            : input.ConsumeRandomLengthString(600);
    texts.emplace_back(text, encoding);
  }
  return texts;
}

void checkWriting(FuzzedDataProvider& input, std::uint32_t address) {
  const std::vector<String> texts = textsOf(input);
  Image image;
  try {
    image = writeStringImage(texts, address);
  } catch (const Raised& raised) {
    require(RuntimeObjectIsa(raised.exception.get(), OutOfMemoryException::__Lookup()) &&
                address > UINT32_MAX - 20U * 700U,
            "an image fits but at the end of the addresses");
    return;
  }
  const auto [read, damage] = readStringImage(image, address);
  require(!damage, "what was written is read");
  require(read == texts, "the texts come back");
  for (std::size_t at = 0; at < texts.size(); ++at) {
    require(read[at].encoding() == texts[at].encoding(), "the encodings come back");
  }
  if (image.empty()) return;
  image[input.ConsumeIntegralInRange<std::size_t>(0, image.size() - 1)] ^=
      input.ConsumeIntegral<std::uint8_t>();
  checkReading(image, address);
  image.resize(input.ConsumeIntegralInRange<std::size_t>(0, image.size()));
  checkReading(image, address);
}

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  fuzz::World::one();
  const fuzz::NothingStays nothingStays;
  FuzzedDataProvider input(data, size);
  const bool bytes = input.ConsumeBool();
  const std::uint32_t address =
      input.ConsumeBool() ? 0x1000 : input.ConsumeIntegral<std::uint32_t>();
  if (bytes) {
    fuzz::checkReading(input.ConsumeRemainingBytes<std::uint8_t>(), address);
  } else {
    fuzz::checkWriting(input, address);
  }
  return 0;
}
