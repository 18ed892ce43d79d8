#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/Fuzz.h"
#include "shell/objects/Failure.h"
#include "shell/objects/StringImage.h"

// Input: an image to read; or texts, whose image is read back, then corrupted and read again.

namespace veldrin::fuzz {
namespace {

using Image = std::vector<std::uint8_t>;

/// The reader reports an error inside the image, or returns strings that produce the same image.
void checkReading(const Image& image, std::uint32_t address) {
  const auto [strings, error] = readStringImage(image, address);
  if (error) {
    require(error->offset <= image.size(), "the error offset lies in the image");
    require(strings.empty(), "a corrupt image yields no strings");
  } else {
    require(writeStringImage(strings, address) == image,
            "writing the strings gives the same image");
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
            "only an image near the end of the address space does not fit");
    return;
  }
  const auto [read, error] = readStringImage(image, address);
  require(!error, "a written image is valid");
  require(read == texts, "the texts are unchanged");
  for (std::size_t index = 0; index < texts.size(); ++index) {
    require(read[index].encoding() == texts[index].encoding(), "the encodings are unchanged");
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
  fuzz::World::instance();
  const fuzz::ObjectLeakGuard objectLeakGuard;
  FuzzedDataProvider input(data, size);
  const bool isImage = input.ConsumeBool();
  const std::uint32_t address =
      input.ConsumeBool() ? 0x1000 : input.ConsumeIntegral<std::uint32_t>();
  if (isImage) {
    fuzz::checkReading(input.ConsumeRemainingBytes<std::uint8_t>(), address);
  } else {
    fuzz::checkWriting(input, address);
  }
  return 0;
}
