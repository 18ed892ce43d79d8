#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

// The attributes of classes and members. Class records and member rows point at these constants,
// in the order "__Scope", "Deprecated", "Hidden", "__Shared".

inline constexpr AttributeRow ScopePublic{"__Scope"_s, "Public"_s, true};
inline constexpr AttributeRow ScopePrivate{"__Scope"_s, "Private"_s, true};
inline constexpr AttributeRow ScopeProtected{"__Scope"_s, "Protected"_s, true};
inline constexpr AttributeRow Hidden{"Hidden"_s, ""_s, false};
inline constexpr AttributeRow Shared{"__Shared"_s, ""_s, false};
/// Marks a deprecated member. `DeprecatedFor` also names the member that replaces it, `Newer`.
inline constexpr AttributeRow Deprecated{"Deprecated"_s, ""_s, false};
template <FixedString Newer>
inline constexpr AttributeRow DeprecatedFor{"Deprecated"_s, ConstantText<Newer>, true};

/// The scope of a member, and whether reflection omits it ("Hidden"). Accessors of properties are
/// hidden, and so are methods whose pointer arguments cannot be checked.
struct Visibility {
  std::uint32_t flags;
  std::span<const AttributeRow> attributes;
  std::span<const AttributeRow> sharedAttributes;  ///< replaces `attributes` for a shared member
};

namespace detail {
inline constexpr std::array PublicRows{ScopePublic};
inline constexpr std::array PublicSharedRows{ScopePublic, Shared};
inline constexpr std::array HiddenRows{ScopePublic, Hidden};
inline constexpr std::array HiddenSharedRows{ScopePublic, Hidden, Shared};
inline constexpr std::array ProtectedRows{ScopeProtected};
inline constexpr std::array ProtectedSharedRows{ScopeProtected, Shared};
inline constexpr std::array PrivateRows{ScopePrivate};
inline constexpr std::array PrivateHiddenRows{ScopePrivate, Hidden};
inline constexpr std::array PrivateHiddenSharedRows{ScopePrivate, Hidden, Shared};
inline constexpr std::array PrivateSharedRows{ScopePrivate, Shared};
}  // namespace detail

inline constexpr Visibility Public{Flags::Public, detail::PublicRows, detail::PublicSharedRows};
inline constexpr Visibility PublicHidden{Flags::Public, detail::HiddenRows,
                                         detail::HiddenSharedRows};
inline constexpr Visibility Protected{0, detail::ProtectedRows, detail::ProtectedSharedRows};
inline constexpr Visibility PrivateHidden{0, detail::PrivateHiddenRows,
                                          detail::PrivateHiddenSharedRows};
inline constexpr Visibility Private{0, detail::PrivateRows, detail::PrivateSharedRows};

}  // namespace veldrin
