#pragma once

#include <cstddef>

namespace veldrin {

// Small blocks of memory for strings and objects, most of which live for one statement. A block
// that is given back is kept for the next of its size, up to a few of each; larger ones come from
// the heap and go there. The program has one thread, so there is nothing to lock. Under
// AddressSanitizer every block is the heap's, so that it sees what happens to each.

/// A block of at least that many bytes, aligned for anything. Throws `std::bad_alloc`.
void* takeBlock(std::size_t size);

/// Gives back a block that was taken with that size.
void giveBlock(void* block, std::size_t size) noexcept;

}  // namespace veldrin
