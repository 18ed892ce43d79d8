#include "shell/files/FileType.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

/// In the order of registration; nullopt without a `Runtime`.
std::optional<std::vector<RegisteredFileType>> registeredTypes;

std::vector<RegisteredFileType>& typesOfRoom() {
  if (!registeredTypes) throw FatalFault("The program uses a file type before there is a runtime.");
  return *registeredTypes;
}

String joined(const String& first, const String& second) {
  return first + ";"_s + second;
}

}  // namespace

void FileType::fillTable(ClassTable<FileType>& table) {
  using WithType = String (FileType::*)(const Ref<FileType>&);
  using WithText = String (FileType::*)(const String&);
  table.method<&FileType::Destructor>("Destructor"_s);
  table.virtualProperty<String, &FileType::Extensions, &FileType::Extensions>("Extensions"_s);
  table.method<&FileType::Icon>("Icon"_s);
  table.virtualProperty<String, &FileType::MacCreator, &FileType::MacCreator>("MacCreator"_s);
  table.virtualProperty<String, &FileType::MacType, &FileType::MacType>("MacType"_s);
  table.virtualProperty<String, &FileType::Name, &FileType::Name>("Name"_s);
  table.method<static_cast<WithType>(&FileType::Operator_Add)>("Operator_Add"_s);
  table.method<static_cast<WithText>(&FileType::Operator_Add)>("Operator_Add"_s);
  table.method<static_cast<WithType>(&FileType::Operator_AddRight)>("Operator_AddRight"_s);
  table.method<static_cast<WithText>(&FileType::Operator_AddRight)>("Operator_AddRight"_s);
  table.method<&FileType::Operator_Convert>("Operator_Convert"_s);
  table.property<&FileType::mExtension>("mExtension"_s, Private);
  table.property<&FileType::mMacCreator>("mMacCreator"_s, Private);
  table.property<&FileType::mMacType>("mMacType"_s, Private);
  table.property<&FileType::mName>("mName"_s, Private);
  table.property<&FileType::mRegistered>("mRegistered"_s, Private);
  table.plainMethod<&FileType::Register>("Register"_s);
  table.plainMethod<&FileType::Deregister>("Deregister"_s);
}

void FileType::change(String& field, String value) {
  Deregister();
  field = std::move(value);
}

void FileType::Extensions(String extensions) {
  change(mExtension, std::move(extensions));
}

void FileType::MacCreator(String creator) {
  change(mMacCreator, std::move(creator));
}

void FileType::MacType(String type) {
  change(mMacType, std::move(type));
}

void FileType::Name(String name) {
  change(mName, std::move(name));
}

String FileType::Operator_Add(const Ref<FileType>& other) {
  return Operator_Add(other->Operator_Convert());
}

String FileType::Operator_Add(const String& other) {
  return joined(Operator_Convert(), other);
}

String FileType::Operator_AddRight(const Ref<FileType>& other) {
  return Operator_AddRight(other->Operator_Convert());
}

String FileType::Operator_AddRight(const String& other) {
  return joined(other, Operator_Convert());
}

String FileType::Operator_Convert() {
  Register();
  return Name();
}

void FileType::Register() {
  // `mRegistered` is out of date if the type has outlived the `Runtime` that registered it.
  const auto& known = typesOfRoom();
  mRegistered =
      mRegistered && std::ranges::find(known, this, &RegisteredFileType::owner) != known.end();
  if (mRegistered) return;
  RuntimeRegisterFileType(mName, mMacCreator, mMacType, mExtension, this);
  mRegistered = true;
}

void FileType::Deregister() {
  if (!mRegistered) return;
  RuntimeDeregisterFileType(mName, this);
  mRegistered = false;
}

void RuntimeRegisterFileType(const String& name, const String& creator, const String& macType,
                             const String& extensions, const FileType* owner) {
  typesOfRoom().push_back({owner, name, creator, macType, extensions});
}

void RuntimeDeregisterFileType(const String& /*name*/, const FileType* owner) {
  if (!registeredTypes) return;
  std::erase_if(*registeredTypes,
                [owner](const RegisteredFileType& type) { return type.owner == owner; });
}

const std::vector<RegisteredFileType>& registeredFileTypes() {
  return typesOfRoom();
}

const RegisteredFileType* findRegisteredFileType(const String& name) {
  const auto& types = typesOfRoom();
  const auto found = std::ranges::find(types, name, &RegisteredFileType::name);
  return found == types.end() ? nullptr : &*found;
}

void createFileTypes() {
  if (registeredTypes) throw FatalFault("There is a runtime already.");
  registeredTypes.emplace();
}

void releaseFileTypes() {
  registeredTypes.reset();
}

}  // namespace veldrin
