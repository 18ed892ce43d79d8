#pragma once

namespace veldrin {

/// Opens /dev/null on each closed descriptor of 0 to 2. Call before the process opens anything:
/// otherwise a file or the connection to the display gets such a number and is used as a standard
/// stream. Reading or writing the standard stream still fails, so lost output is noticed.
void openStandardDescriptors();

}  // namespace veldrin
