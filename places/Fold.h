#pragma once

#include <string>
#include <string_view>

namespace veldrin {

/// The key of a name, for comparison. Names have the same key if they differ only in case, accents
/// or apostrophes, or in a hyphen instead of a blank:
///
///     fold("Aix-en-Provence");  // "aix en provence"
///     fold("Łódź");             // "lodz"
///     fold("L’Aquila");         // "laquila"
///
/// Apostrophes are dropped; hyphens and other punctuation become blanks. Letters that Unicode does
/// not decompose get plain forms: ø becomes o, ß becomes ss. A key folds to itself.
///
/// Throws `PlaceFault` if the text is not UTF-8 or has a control character. A program that was
/// built without utf8proc throws for every text.
std::string fold(std::string_view text);

}  // namespace veldrin
