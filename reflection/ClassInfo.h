#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A class or an interface with all its members, inherited ones first. A nil class record means the
/// root class "Object", which lists no members.
class ClassInfo final : public Described<ClassInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.ClassInfo";
  static void fillTable(ClassTable<ClassInfo>& table);

  ClassInfo();
  ~ClassInfo() override;

  /// The shared description of a class; nil for a hidden class. Raises `TypeMismatchException` if
  /// the pointer is not a class record.
  static Ref<ClassInfo> Lookup(ClassRecord* record);
  /// The same by full name. The first call maps the names of the classes built by then. Any other
  /// name returns the root.
  static Ref<ClassInfo> Lookup(const String& fullName);

  /// Releases the map from full names to class records.
  static void finalizeClassFQNToRefMap();
  /// Releases the descriptions that `Lookup` keeps.
  static void finalizeClassRefMap();
  /// Clears the members of all existing descriptions. Without this, classes with properties of each
  /// other's types would never be released.
  static void breakCycles();

  using TypeInfo::Constructor;
  /// Initialises the description and registers it: type codes with this class name resolve to it
  /// from now on. An exception undoes all registrations. Also creates a new description of the base
  /// class, so compare classes by `IsSubclassOf`, not by identity.
  void Constructor(ClassRecord* record);
  /// Whether this class equals `other` or derives from it; all classes derive from the root.
  [[nodiscard]] bool IsSubclassOf(const Ref<TypeInfo>& other) const override;

 private:
  void describe(ClassRecord* record);
  void addMembers();
  void addMethod(const MethodRow& row);

  ClassRecord* mClassRef = nullptr;
  ClassInfo* newer_ = nullptr;
  ClassInfo* older_;
};

}  // namespace veldrin::Introspection
