#pragma once

namespace veldrin {

/// Opens those of the descriptors 0 to 2 that are closed, before anything else of the process is
/// opened: the connection to a display, or a file, would get a number that is read from and written
/// to as a standard stream. Nobody can read or write them all the same, so that what cannot be
/// printed still fails.
void openStandardDescriptors();

}  // namespace veldrin
