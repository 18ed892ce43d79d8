#pragma once

#include <array>
#include <cstddef>
#include <new>

namespace veldrin {

// A pool of small memory blocks for strings and objects, most of which live for one statement. It
// keeps up to `MaximumCount` freed blocks of each size, for the next requests of that size. Blocks
// larger than `LargestSize` come from the heap. Under AddressSanitizer all blocks do, so that it
// can check each one. Not thread-safe: Veldrin has one thread.

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
struct FreeList {
  static constexpr std::size_t SizeStep = 16;      ///< in bytes
  static constexpr std::size_t LargestSize = 128;  ///< in bytes
  static constexpr std::size_t MaximumCount = 64;

  std::array<void*, MaximumCount> blocks;
  std::size_t count;
};

/// One list for blocks of 1 to 16 bytes, one for 17 to 32, and so on. Never destroyed, because
/// objects may be released after static destructors have run.
inline constinit std::array<FreeList, FreeList::LargestSize / FreeList::SizeStep> freeLists{};

}  // namespace detail

/// Returns a block of at least `size` bytes (`size` > 0), aligned as by the global `operator new`.
/// Throws `std::bad_alloc` if memory runs out.
inline void* allocateBlock(std::size_t size) {
  using detail::FreeList;
  if (!detail::Pooled || size - 1 >= FreeList::LargestSize) return ::operator new(size);
  FreeList& list = detail::freeLists[(size - 1) / FreeList::SizeStep];
  if (list.count != 0) return list.blocks[--list.count];
  return ::operator new((size + FreeList::SizeStep - 1) / FreeList::SizeStep * FreeList::SizeStep);
}

/// Frees a block from `allocateBlock(size)`.
inline void freeBlock(void* block, std::size_t size) noexcept {
  using detail::FreeList;
  if (detail::Pooled && size - 1 < FreeList::LargestSize) {
    FreeList& list = detail::freeLists[(size - 1) / FreeList::SizeStep];
    if (list.count != FreeList::MaximumCount) {
      list.blocks[list.count++] = block;
      return;
    }
  }
  ::operator delete(block);
}

}  // namespace veldrin
