#pragma once

#include "reflection/TypeInfo.h"
#include "shell/objects/Dictionary.h"

namespace veldrin::Introspection {

/// A class or an interface with all its members, inherited ones first. Nil as a class record stands
/// for the root, the class "Object", which lists no members.
class ClassInfo final : public Described<ClassInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.ClassInfo";
  static void fillTable(ClassTable<ClassInfo>& table);

  ClassInfo();
  ~ClassInfo() override;

  /// The one description that is kept of a class; nil for a hidden class. Raises
  /// `TypeMismatchException` for a pointer to anything else.
  static Ref<ClassInfo> Lookup(ClassRecord* record);
  /// The same by full name. The names are those of the classes that had been built when the first
  /// name was asked for; any other gives the root.
  static Ref<ClassInfo> Lookup(const String& fullName);

  /// Releases the map from full names to class records.
  static void finalizeClassFQNToRefMap();
  /// Releases the descriptions that `Lookup` has kept.
  static void finalizeClassRefMap();
  /// Makes every description that lives give up its members. Classes that have properties of each
  /// other's types hold each other; after this they no longer do.
  static void breakRings();

  using TypeInfo::Constructor;
  /// Describes a class, and is from now on what its full name stands for in type codes. Where an
  /// exception ends this half-way, nothing of it can be reached by a name, and the next lookup
  /// describes the class anew.
  /// A description is new for each class that is made, that of the base included: compare classes
  /// by `IsSubclassOf`, not by identity.
  void Constructor(ClassRecord* record);
  /// Whether this class is the other or derives from it; everything derives from the root.
  [[nodiscard]] bool IsSubclassOf(const Ref<TypeInfo>& other) const override;

 private:
  static inline Ref<Dictionary> sClassFQNToRefMap;  ///< both nil until the first use
  static inline Ref<Dictionary> sClassRefMap;
  static inline ClassInfo* newest_ = nullptr;  ///< the list of all that live

  void describe(ClassRecord* record);
  void takeMembers();
  void takeMethod(const MethodRow& row);

  ClassRecord* mClassRef = nullptr;
  ClassInfo* newer_ = nullptr;
  ClassInfo* older_;
};

}  // namespace veldrin::Introspection
