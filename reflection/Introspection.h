#pragma once

#include "reflection/TypeInfo.h"
#include "shell/objects/Dictionary.h"

/// Descriptions of classes, types and members at run time, read from the class tables and the type
/// codes in them. The program's own logic asks for none of it.
///
///     GetType(window)->GetMethods();                   // each with its parameters
///     GetInfoFromTypeCode("A1i4"_s)->QualifiedName();  // "Int32()"
///
/// A description is made on first need and kept until the end of the process. What it describes are
/// the classes that have been built by then.
namespace veldrin::Introspection {

/// The description of the object's class: nil for nil and for an object of a hidden class, the root
/// for an array.
Ref<TypeInfo> GetType(const Ref<Object>& object);

/// The type that a code stands for, by the grammar of `shell/objects/TypeCodeGrammar.h`; nil for a
/// malformed code, an empty name as in "o<>" and a rank that is not from 1 to `MaximumRank`
/// included, and for a code that no type has. The name of a class that does not exist, or that was
/// built after the first name was asked for, gives the root, and any name an enumeration or a
/// structure, new each time. A hidden class has no type when its code is first asked for; the
/// description that was begun on the way stays under its name, and is what the code gives from then
/// on. Raises `StackOverflowException` for arrays in arrays that have more dimensions together than
/// `ArrayInfo::MaximumDepth`.
Ref<TypeInfo> GetInfoFromTypeCode(const String& code);

/// The map from full names to the classes that have been described so far. Whatever stands in it
/// under a name is what any code with that name means.
Ref<Dictionary> GetFQNTypeInfoMap();

/// A new map from the codes of the built-in types to their descriptions.
Ref<Dictionary> MakeIntrinsicTypeCodeMap();

/// Releases the two maps that the module keeps. It comes last: after `ArrayInfo::finalizeArrayMap`,
/// `ClassInfo::finalizeClassFQNToRefMap` and `ClassInfo::finalizeClassRefMap`, in this order, which
/// `finalizeReflection` calls.
void finalizeModule();

/// Releases everything that descriptions are kept in. One that somebody still holds stays valid and
/// has no members any more.
void finalizeReflection();

}  // namespace veldrin::Introspection
