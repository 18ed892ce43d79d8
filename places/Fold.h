#pragma once

#include <string>
#include <string_view>

namespace veldrin {

/// The key of a name, for comparison. Names that differ only in case, accents, hyphens, apostrophes
/// or blanks have the same key:
///
///     fold("Aix-en-Provence");  // "aix en provence"
///     fold("Łódź");             // "lodz"
///     fold("L’Aquila");         // "laquila"
///
/// Apostrophes are dropped; hyphens and other punctuation become blanks. A letter that Unicode does
/// not decompose gets its plain form: ø is o, ł is l, ß is ss. A key folds to itself.
///
/// Throws `PlaceFault` if the text is not UTF-8 or has a control character. A program that was
/// built without utf8proc throws for every text.
std::string fold(std::string_view text);

}  // namespace veldrin
