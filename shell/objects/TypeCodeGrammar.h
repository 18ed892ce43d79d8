#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace veldrin {

// Type codes and signatures as text; everything that takes one apart does so here.
//
//   signature = "%" code? "%" parameter*
//   parameter = "&"? code
//   code      = "A" rank code | letter digit* name?
//   rank      = digit+                                   1 to 1000
//   letter    = "a".."z" | "A".."Z" | "?"
//   name      = "<" text ">"                             not empty, its own brackets in pairs
//
//     %o<Introspection.TypeInfo>%i4o<Introspection.TypeInfo>    a result and two parameters
//     %%o<Date>&f8                                              the second by reference
//     A1o<Pair>                                                 one code, not three
//
// The views that come back lie within the text that was given.

/// The dimensions that an array can have at most.
inline constexpr std::int32_t MaximumRank = 1000;

/// The two halves of a signature.
struct SignatureParts {
  std::string_view result;      ///< a type code; empty for a method without a result
  std::string_view parameters;  ///< one after the other, for `takeParameter`
};

/// Splits a signature at its two "%" signs; nothing where the first does not lead or where there
/// are more or fewer. The codes in it are not looked at.
std::optional<SignatureParts> splitSignature(std::string_view signature);

/// Takes the first parameter off a list, its "&" included. It ends behind its letter, its digits
/// and its name, with at most one array prefix ahead of the letter: an array of arrays falls apart
/// here. What is no parameter comes off too, at least one character of it, and has no type; nothing
/// comes off an empty list alone.
std::string_view takeParameter(std::string_view& list);

/// What a type code stands for. An object, an enumeration and a structure have a name.
enum class CodeKind : std::uint8_t { Array, Object, Enumeration, Structure, Other };

/// A type code taken apart.
struct TypeCodeParts {
  CodeKind kind;
  std::int32_t rank;       ///< of an array, from 1 to `MaximumRank`; else 0
  std::string_view inner;  ///< the code of an array's elements, or the name; may be empty for Other
};

/// Takes a type code apart; nothing for a text that is none. The code of an array's elements is not
/// looked at, except that there is one.
std::optional<TypeCodeParts> readTypeCode(std::string_view code);

}  // namespace veldrin
