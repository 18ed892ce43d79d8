#pragma once

namespace veldrin {

/// Opens each of the descriptors 0 to 2 that is closed. Call before the process opens anything:
/// otherwise a file or the connection to the display gets such a number and is used as a standard
/// stream. Reads and writes on them still fail, so lost output is noticed.
void openStandardDescriptors();

}  // namespace veldrin
