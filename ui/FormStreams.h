#pragma once

#include <array>

#include "daystatus/FormParts.h"

namespace veldrin {

// The property streams of the form, built at compile time from the form's table. A stream has no
// header, no count and no end mark. A key is the ASCII name of a property, whose type decides the
// form of the value. Values are binary: the encoding of the string constant has no meaning.
//
//   stream  = entry*
//   entry   = key blank value
//   value   = integer | boolean | colour | text
//
//   integer = 4 bytes, big-endian
//   boolean = 1 byte, 0 or 1
//   colour  = 3 bytes, red green blue
//   text    = integer (the length in bytes), bytes

/// The streams of the controls in the order of the form's table, followed by the window's stream.
extern const std::array<StringConstant, FormTable.size() + 1> FormStreams;

/// The window's own stream.
extern const StringConstant WindowStream;

}  // namespace veldrin
