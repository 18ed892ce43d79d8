#pragma once

#include <vector>

#include "shell/objects/Described.h"

namespace veldrin {

/// A kind of file that a dialog can offer; Veldrin's only type is in calendar/OutputFile.h. The
/// type registers itself on its first use as a filter and on the first use after a change. It may
/// outlive the `Runtime`.
class FileType final : public Described<FileType, Object> {
 public:
  static constexpr FixedString FullName = "FileType";
  static void fillTable(ClassTable<FileType>& table);

  void Destructor() { Deregister(); }

  // Each setter deregisters the type, so that the next use registers the new values.

  [[nodiscard]] String Extensions() const { return mExtension; }
  void Extensions(String extensions);
  /// Always nil. The framework's conventions require it.
  [[nodiscard]] Ref<Object> Icon() const { return nullptr; }
  [[nodiscard]] String MacCreator() const { return mMacCreator; }
  void MacCreator(String creator);
  [[nodiscard]] String MacType() const { return mMacType; }
  void MacType(String type);
  [[nodiscard]] String Name() const { return mName; }
  void Name(String name);

  /// A filter for both types, with the name of this type first.
  String Operator_Add(const Ref<FileType>& other);
  String Operator_Add(const String& other);
  /// A filter for both types, with the name of `other` first.
  String Operator_AddRight(const Ref<FileType>& other);
  String Operator_AddRight(const String& other);
  /// Registers the type and returns its name, which is the filter for this type alone.
  String Operator_Convert();

  /// Registers the type unless it is registered. Throws `FatalFault` without a `Runtime`.
  void Register();
  /// Removes the type from the registry if it is registered.
  void Deregister();

 private:
  void change(String& field, String value);

  String mExtension;
  String mMacCreator;
  String mMacType;
  String mName;
  bool mRegistered = false;
};

/// A registered type. Without `extensions`, a dialog filters by the extension of the proposed name.
struct RegisteredFileType {
  const FileType* owner;
  String name;
  String creator;
  String macType;
  String extensions;
};

/// Registers a type under its name, which dialogs accept as a filter. `owner` distinguishes types
/// of the same name. Throws `FatalFault` without a `Runtime`.
void RuntimeRegisterFileType(const String& name, const String& creator, const String& macType,
                             const String& extensions, const FileType* owner);

/// Removes all types of the owner, under any name. Does nothing without a `Runtime`.
void RuntimeDeregisterFileType(const String& name, const FileType* owner);

/// The types in the order of registration. Throws `FatalFault` without a `Runtime`.
const std::vector<RegisteredFileType>& registeredFileTypes();

/// The first registered type of that name, or nullptr. Throws `FatalFault` without a `Runtime`.
const RegisteredFileType* findRegisteredFileType(const String& name);

/// Creates the empty registry. Throws `FatalFault` if it exists.
void createFileTypes();
/// Destroys the registry.
void releaseFileTypes();

}  // namespace veldrin
