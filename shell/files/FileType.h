#pragma once

#include <vector>

#include "shell/objects/Described.h"

namespace veldrin {

/// A kind of file that a dialog can offer. It is registered with the framework when it is first
/// used as a filter, and again after a change. It may outlive the runtime.
class FileType final : public Described<FileType, Object> {
 public:
  static constexpr FixedString FullName = "FileType";
  static void fillTable(ClassTable<FileType>& table);

  void Destructor() { Deregister(); }

  // Each write deregisters the type, so that a later use registers the new values.

  [[nodiscard]] String Extensions() const { return mExtension; }
  void Extensions(String extensions);
  /// The picture of the type; there are none in this system, so it is nil.
  [[nodiscard]] Ref<Object> Icon() const { return nullptr; }
  [[nodiscard]] String MacCreator() const { return mMacCreator; }
  void MacCreator(String creator);
  [[nodiscard]] String MacType() const { return mMacType; }
  void MacType(String type);
  [[nodiscard]] String Name() const { return mName; }
  void Name(String name);

  /// Both types as one filter, this one's name first.
  String Operator_Add(const Ref<FileType>& other);
  String Operator_Add(const String& other);
  /// Both types as one filter, the other one first.
  String Operator_AddRight(const Ref<FileType>& other);
  String Operator_AddRight(const String& other);
  /// The filter of this type alone: its name, after registering it.
  String Operator_Convert();

  /// Makes the type known to the dialogs, once. Throws `FatalFault` without a runtime.
  void Register();
  /// Takes it away again, if it is registered.
  void Deregister();

 private:
  void change(String& field, String value);

  String mExtension;
  String mMacCreator;
  String mMacType;
  String mName;
  bool mRegistered = false;
};

/// What the framework knows of a registered type. An empty `extensions` says that the type declares
/// none: the name of the file has its own.
struct RegisteredFileType {
  const FileType* owner;
  String name;
  String creator;
  String macType;
  String extensions;
};

/// Makes a type known under its name, for the dialogs that get that name as a filter. `owner` tells
/// types of one name apart.
void RuntimeRegisterFileType(const String& name, const String& creator, const String& macType,
                             const String& extensions, const FileType* owner);

/// Takes away what the owner has registered, whatever its name has been since. Does nothing without
/// a runtime, since a type may outlive it.
void RuntimeDeregisterFileType(const String& name, const FileType* owner);

/// The registered types in the order of their registering. Throws `FatalFault` without a runtime.
const std::vector<RegisteredFileType>& registeredFileTypes();

/// The type of that name that was registered first, or nil.
const RegisteredFileType* findRegisteredFileType(const String& name);

/// Readies the registry, empty. Throws `FatalFault` if it is up already.
void takeUpFileTypes();
/// Forgets every registered type.
void layDownFileTypes();

}  // namespace veldrin
