#pragma once

#include <string>
#include <string_view>

namespace veldrin {

/// The key by which names are compared. Two names that differ only in case, accents, hyphens,
/// apostrophes or blanks have the same key:
///
///     fold("Aix-en-Provence");  // "aix en provence"
///     fold("Łódź");             // "lodz"
///     fold("L’Aquila");         // "laquila"
///
/// An apostrophe is left out; a hyphen and any other punctuation count as a blank. A letter that
/// Unicode does not decompose has its usual plain form: ø is o, ł is l, ß is ss. A key folds to
/// itself.
///
/// Throws `PlaceFault` if the text is not UTF-8 or has a control character, and for every text if
/// the program was built without utf8proc.
std::string fold(std::string_view text);

}  // namespace veldrin
