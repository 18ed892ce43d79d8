#pragma once

#include <array>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

// The attributes that rows can have, as constants: no row owns any. "__Scope" stands first wherever
// it stands.

inline constexpr AttributeRow ScopePublic{"__Scope"_s, "Public"_s, true};
inline constexpr AttributeRow ScopePrivate{"__Scope"_s, "Private"_s, true};
inline constexpr AttributeRow Hidden{"Hidden"_s, ""_s, false};
inline constexpr AttributeRow Shared{"__Shared"_s, ""_s, false};

/// Who sees a member: the public, the public but not reflection, or the class alone.
struct Visibility {
  std::uint32_t flags;
  std::span<const AttributeRow> attributes;
  std::span<const AttributeRow> sharedAttributes;  ///< of a shared member
};

namespace detail {
inline constexpr std::array PublicRows{ScopePublic};
inline constexpr std::array PublicSharedRows{ScopePublic, Shared};
inline constexpr std::array HiddenRows{ScopePublic, Hidden};
inline constexpr std::array HiddenSharedRows{ScopePublic, Hidden, Shared};
inline constexpr std::array PrivateRows{ScopePrivate};
inline constexpr std::array PrivateSharedRows{ScopePrivate, Shared};
}  // namespace detail

inline constexpr Visibility Public{Flags::Public, detail::PublicRows, detail::PublicSharedRows};
inline constexpr Visibility PublicHidden{Flags::Public, detail::HiddenRows,
                                         detail::HiddenSharedRows};
inline constexpr Visibility Private{0, detail::PrivateRows, detail::PrivateSharedRows};

}  // namespace veldrin
