#include "shell/objects/BlockPool.h"

#include <array>
#include <new>

namespace veldrin {
namespace {

constexpr std::size_t Step = 16;
constexpr std::size_t LargestKept = 128;
constexpr std::size_t MostKept = 64;  ///< blocks of one size

// One compiler tells of AddressSanitizer by a macro, another by a feature.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool Pooled = false;
#elif defined(__has_feature)
constexpr bool Pooled = !__has_feature(address_sanitizer);
#else
constexpr bool Pooled = true;
#endif

struct Shelf {
  std::array<void*, MostKept> blocks;
  std::size_t count;
};

// One shelf for the sizes 1 to 16, one for 17 to 32 and so on; never taken down, because the last
// objects of the program may go after it.
constinit std::array<Shelf, LargestKept / Step> shelves{};

}  // namespace

void* takeBlock(std::size_t size) {
  if (!Pooled || size - 1 >= LargestKept) return ::operator new(size);
  Shelf& shelf = shelves[(size - 1) / Step];
  if (shelf.count != 0) return shelf.blocks[--shelf.count];
  return ::operator new((size + Step - 1) / Step * Step);
}

void giveBlock(void* block, std::size_t size) noexcept {
  if (Pooled && size - 1 < LargestKept) {
    Shelf& shelf = shelves[(size - 1) / Step];
    if (shelf.count != MostKept) {
      shelf.blocks[shelf.count++] = block;
      return;
    }
  }
  ::operator delete(block);
}

}  // namespace veldrin
