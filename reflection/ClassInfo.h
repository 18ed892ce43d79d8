#pragma once

#include "reflection/TypeInfo.h"
#include "shell/objects/Dictionary.h"

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
  /// the pointer is no class record.
  static Ref<ClassInfo> Lookup(ClassRecord* record);
  /// The same by full name. The map of names is made at the first call; a name that is not in it
  /// returns the root.
  static Ref<ClassInfo> Lookup(const String& fullName);

  /// Releases the map from full names to class records.
  static void finalizeClassFQNToRefMap();
  /// Releases the descriptions that `Lookup` keeps.
  static void finalizeClassRefMap();
  /// Clears the members of all existing descriptions. This breaks reference cycles between classes
  /// that have properties of each other's types.
  static void breakRings();

  using TypeInfo::Constructor;
  /// Initialises the description and registers it: type codes with this class name resolve to it
  /// from now on. If an exception interrupts this, all registrations are undone. Also creates a new
  /// description of the base class, so compare classes by `IsSubclassOf`, not by identity.
  void Constructor(ClassRecord* record);
  /// Whether this class is the other one or derives from it; all classes derive from the root.
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
