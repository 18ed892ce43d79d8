#pragma once

#include <array>
#include <cstddef>
#include <new>

namespace veldrin {

// A pool of small memory blocks for strings and objects, most of which live for one statement. A
// freed block is kept for the next request of its size, up to `MostKept` blocks of each size.
// Larger blocks use the heap directly. Not thread-safe: Veldrin has one thread. Under
// AddressSanitizer all blocks come from the heap, so that it can check each one.

namespace detail {

// GCC defines a macro under AddressSanitizer; Clang has a feature test.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool Pooled = false;
#elif defined(__has_feature)
inline constexpr bool Pooled = !__has_feature(address_sanitizer);
#else
inline constexpr bool Pooled = true;
#endif

/// The free blocks of one size.
struct Shelf {
  static constexpr std::size_t Step = 16;  ///< between block sizes, in bytes
  static constexpr std::size_t LargestKept = 128;
  static constexpr std::size_t MostKept = 64;

  std::array<void*, MostKept> blocks;
  std::size_t count;
};

/// One shelf for 1 to 16 bytes, one for 17 to 32, and so on. Never destroyed, because objects may
/// be released after static destructors have run.
inline constinit std::array<Shelf, Shelf::LargestKept / Shelf::Step> shelves{};

}  // namespace detail

/// Returns a block of at least `size` bytes (`size` > 0), aligned for any type. Throws
/// `std::bad_alloc`.
inline void* takeBlock(std::size_t size) {
  using detail::Shelf;
  if (!detail::Pooled || size - 1 >= Shelf::LargestKept) return ::operator new(size);
  Shelf& shelf = detail::shelves[(size - 1) / Shelf::Step];
  if (shelf.count != 0) return shelf.blocks[--shelf.count];
  return ::operator new((size + Shelf::Step - 1) / Shelf::Step * Shelf::Step);
}

/// Frees a block from `takeBlock(size)`.
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
