#include "ui/PropertyStream.h"

#include <algorithm>
#include <utility>

#include "shell/objects/Color.h"
#include "shell/objects/Failure.h"
#include "shell/objects/PropertyAccess.h"
#include "shell/window/Control.h"

namespace veldrin {
namespace {

/// A read position in a stream. A read past the end throws `StreamFault`.
class Cursor {
 public:
  explicit Cursor(std::string_view stream) : stream_(stream) {}

  [[nodiscard]] bool atEnd() const { return offset_ == stream_.size(); }

  /// Reads a key and skips the blank after it.
  std::string_view key() {
    keyOffset_ = offset_;
    const std::size_t blank = stream_.find(' ', offset_);
    key_ = stream_.substr(offset_, blank - offset_);
    if (blank == std::string_view::npos) fail(keyOffset_, "a key with no value");
    offset_ = blank + 1;
    return key_;
  }

  std::string_view bytes(std::size_t count) {
    if (count > stream_.size() - offset_) fail(offset_, "a value that leaves the stream");
    const std::string_view taken = stream_.substr(offset_, count);
    offset_ += count;
    return taken;
  }

  std::uint8_t byte() { return static_cast<std::uint8_t>(bytes(1).front()); }

  std::uint32_t word() {
    std::uint32_t value = 0;
    for (const char part : bytes(4)) value = value << 8 | static_cast<std::uint8_t>(part);
    return value;
  }

  bool boolean() {
    const std::uint8_t value = byte();
    if (value > 1) fail(offset_ - 1, "a boolean that is neither 0 nor 1");
    return value == 1;
  }

  /// Throws the fault of an entry whose property is unknown or cannot be set by a stream.
  [[noreturn]] void failKey(const char* what) const { fail(keyOffset_, what); }

 private:
  [[noreturn]] void fail(std::size_t offset, const char* what) const {
    std::string key(key_.substr(0, LongestKeyShown));
    std::ranges::replace_if(
        key, [](char character) { return character <= ' ' || character > '~'; }, '?');
    throw StreamFault{std::move(key), offset, what};
  }

  static constexpr std::size_t LongestKeyShown = 40;

  std::string_view stream_;
  std::size_t offset_ = 0;
  std::size_t keyOffset_ = 0;
  std::string_view key_;
};

Variant readValue(Cursor& cursor, const PropertyRow& property) {
  const std::string_view type = property.type.view();
  if (type.starts_with("i4")) return static_cast<std::int32_t>(cursor.word());
  if (type == "b") return cursor.boolean();
  if (type == "s") return String(cursor.bytes(cursor.word()));
  if (type == "c") {
    Color color;
    color.red = cursor.byte();
    color.green = cursor.byte();
    color.blue = cursor.byte();
    return color;
  }
  cursor.failKey("a property of a type that streams do not have");
}

/// The name of a control. For an unnamed control or any other object, the name of its class.
std::string nameOf(const Object& object) {
  if (RuntimeObjectIsa(&object, Control::__Lookup())) {
    const String name = static_cast<const Control&>(object).Name;
    if (!name.isEmpty()) return std::string(name.view());
  }
  return std::string(object.classRecord()->name.view());
}

}  // namespace

StreamContents readPropertyStream(const ClassRecord& record, std::string_view stream) {
  constexpr std::size_t UsualEntries = 40;
  StreamContents contents;
  contents.entries.reserve(UsualEntries);
  Cursor cursor(stream);
  try {
    while (!cursor.atEnd()) {
      const PropertyRow* const property = FindProperty(record, cursor.key());
      if (property == nullptr) cursor.failKey("no such property");
      if (property->setter == nullptr) cursor.failKey("a property that cannot be set");
      contents.entries.push_back({property, readValue(cursor, *property)});
    }
  } catch (StreamFault& fault) {
    contents.fault = std::move(fault);
  }
  return contents;
}

void RuntimeMassPropertySetter(const Ref<Object>& object, const String& stream) {
  const StreamContents contents = readPropertyStream(*object->classRecord(), stream.view());
  if (contents.fault) {
    const StreamFault& fault = *contents.fault;
    throw FatalFault("The form of " + nameOf(*object) + " is damaged at byte " +
                     std::to_string(fault.offset) + ", key \"" + fault.key + "\": " + fault.what);
  }
  for (const StreamEntry& entry : contents.entries) {
    const PropertyRow& row = *entry.property;
    RuntimeGenericSetter(row.reflectionSet, row.setter, object.get(), row.fieldOffset, entry.value);
  }
}

void _SetProperties(const Ref<Object>& object, const String& stream) {
  RuntimeMassPropertySetter(object, stream);
}

}  // namespace veldrin
