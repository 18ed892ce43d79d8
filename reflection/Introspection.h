#pragma once

#include "reflection/TypeInfo.h"
#include "shell/objects/Dictionary.h"

/// The reflection module. Descriptions of classes, types and members, made from the class tables.
/// Only tests and a benchmark read them; see docs/names.md.
///
///     GetType(window)->GetMethods();                   // all methods of the window's class
///     GetInfoFromTypeCode("A1i4"_s)->QualifiedName();  // "Int32()"
///
/// A description is created on first use, from the classes built by then, and kept until
/// `finalizeReflection`.
namespace veldrin::Introspection {

/// The description of the object's class; nil for a nil object or a hidden class. An array object
/// has the root class.
Ref<TypeInfo> GetType(const Ref<Object>& object);

/// The type of a type code (grammar: `shell/objects/TypeCodeGrammar.h`).
/// - A malformed or unknown code returns nil. So do nested arrays whose dimensions add up to more
///   than `ArrayInfo::MaximumTotalRank`.
/// - An unknown or empty class name ("o<>") returns the root (see `ClassInfo::Lookup`).
/// - A name of an enumeration or a structure returns a new description each time.
/// - A hidden class returns nil the first time, but its description later, because the first call
///   registers it.
Ref<TypeInfo> GetInfoFromTypeCode(const String& code);

/// The map from full names to described classes. Type codes resolve names through it first.
Ref<Dictionary> GetFQNTypeInfoMap();

/// A new map from type codes of built-in types to descriptions.
Ref<Dictionary> MakeIntrinsicTypeCodeMap();

/// Clears the members of all classes and releases the maps of type codes and of full names. Call
/// after the finalizers of `ArrayInfo` and `ClassInfo`.
void finalizeModule();

/// Calls all finalizers of the module in order. A description that is still referenced
/// stays valid, but has no members.
void finalizeReflection();

}  // namespace veldrin::Introspection
