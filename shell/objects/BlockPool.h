#pragma once

#include <array>
#include <cstddef>
#include <new>

namespace veldrin {

// Small blocks of memory for strings and objects, most of which live for one statement. A block
// that is given back is kept for the next of its size, up to a few of each; larger ones come from
// the heap and go there. The program has one thread, so there is nothing to lock. Under
// AddressSanitizer every block is the heap's, so that it sees what happens to each.

namespace detail {

// One compiler tells of AddressSanitizer by a macro, another by a feature.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool Pooled = false;
#elif defined(__has_feature)
inline constexpr bool Pooled = !__has_feature(address_sanitizer);
#else
inline constexpr bool Pooled = true;
#endif

/// The blocks of one size that are kept.
struct Shelf {
  static constexpr std::size_t Step = 16;  ///< of the sizes
  static constexpr std::size_t LargestKept = 128;
  static constexpr std::size_t MostKept = 64;

  std::array<void*, MostKept> blocks;
  std::size_t count;
};

/// One shelf for the sizes 1 to 16, one for 17 to 32 and so on; never taken down, because the last
/// objects of the program may go after it.
inline constinit std::array<Shelf, Shelf::LargestKept / Shelf::Step> shelves{};

}  // namespace detail

/// A block of at least that many bytes, at least one, aligned for anything. Throws
/// `std::bad_alloc`.
inline void* takeBlock(std::size_t size) {
  using detail::Shelf;
  if (!detail::Pooled || size - 1 >= Shelf::LargestKept) return ::operator new(size);
  Shelf& shelf = detail::shelves[(size - 1) / Shelf::Step];
  if (shelf.count != 0) return shelf.blocks[--shelf.count];
  return ::operator new((size + Shelf::Step - 1) / Shelf::Step * Shelf::Step);
}

/// Gives back a block that was taken with that size.
inline void giveBlock(void* block, std::size_t size) noexcept {
  using detail::Shelf;
  if (detail::Pooled && size - 1 < Shelf::LargestKept) {
    Shelf& shelf = detail::shelves[(size - 1) / Shelf::Step];
    if (shelf.count != Shelf::MostKept) {
      shelf.blocks[shelf.count++] = block;
      return;
    }
  }
  ::operator delete(block);
}

}  // namespace veldrin
