#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace veldrin {

// The grammar and the parser of type codes and signatures:
//
//   signature = "%" code? "%" parameter*
//   parameter = "&"? code
//   code      = "A" rank code | letter digit* name?
//   rank      = digit+                                   1 to 1000
//   letter    = "a".."z" | "A".."Z" | "?"
//   name      = "<" text ">"                             brackets balanced
//
//     %o<Introspection.TypeInfo>%i4o<Introspection.TypeInfo>    one result, two parameters
//     %%o<Date>&f8                                              second parameter by reference
//     A1o<Pair>                                                 one type code
//
// Returned views point into the given text.

/// The maximum number of dimensions of an array.
inline constexpr std::int32_t MaximumRank = 1000;

/// The two halves of a signature.
struct SignatureParts {
  std::string_view result;      ///< a type code; empty for a method without a result
  std::string_view parameters;  ///< a list for `takeParameter`
};

/// Splits a signature at its two "%" signs; nullopt unless the signature has exactly two and starts
/// with the first. Does not check the codes.
std::optional<SignatureParts> splitSignature(std::string_view signature);

/// Removes the first parameter from `list` and returns it, with "&" if it has one. Accepts only one
/// array prefix, so it splits an array of arrays wrongly. From malformed text, removes at least one
/// character and returns an invalid type code. Returns an empty view only for an empty list.
std::string_view takeParameter(std::string_view& list);

/// The kind of a type code. `Object`, `Enumeration` and `Structure` have a name.
enum class CodeKind : std::uint8_t { Array, Object, Enumeration, Structure, Other };

/// A parsed type code.
struct TypeCodeParts {
  CodeKind kind;
  std::int32_t rank;       ///< of an array, 1 to `MaximumRank`; else 0
  std::string_view inner;  ///< element code of an array, else the name; may be empty
};

/// Parses a type code; nullopt if it is malformed. A name may be empty. Does not parse the element
/// code of an array, but requires one.
std::optional<TypeCodeParts> readTypeCode(std::string_view code);

}  // namespace veldrin
