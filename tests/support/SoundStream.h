#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>
#include <vector>

#include "shell/objects/Failure.h"
#include "shell/objects/PropertyAccess.h"
#include "shell/window/Window.h"
#include "ui/PropertyStream.h"

namespace veldrin::test {

/// The bytes of an integer in a property stream, big-endian.
inline std::string streamInteger(std::uint32_t value) {
  std::string bytes;
  for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(value >> shift & 0xFFU);
  return bytes;
}

/// The bytes of an entry in a property stream.
inline std::string entry(std::string_view key, const Variant& value) {
  std::string bytes = std::string(key) + ' ';
  if (const auto* number = std::get_if<std::int32_t>(&value.storage())) {
    bytes += streamInteger(static_cast<std::uint32_t>(*number));
  } else if (const auto* flag = std::get_if<bool>(&value.storage())) {
    bytes += *flag ? '\1' : '\0';
  } else if (const auto* color = std::get_if<Color>(&value.storage())) {
    for (const auto part : {color->red, color->green, color->blue}) {
      bytes += static_cast<char>(part);
    }
  } else {
    const std::string_view content = std::get<String>(value.storage()).view();
    bytes += streamInteger(static_cast<std::uint32_t>(content.size())) + std::string(content);
  }
  return bytes;
}

/// Applies the stream to the object. Returns the message of the fault, "" if there is none.
inline std::string faultOf(const Ref<Object>& object, const std::string& stream) {
  try {
    _SetProperties(object, String(stream));
  } catch (const FatalFault& fault) {
    return fault.what();
  }
  return "";
}

/// Every property of the object, in the order of its class.
inline std::vector<Variant> valuesOf(const Ref<Object>& object) {
  std::vector<Variant> all;
  for (const PropertyRow& row : object->classRecord()->propertyRows) {
    all.push_back(
        RuntimeGenericGetter(row.reflectionGet, row.getter, object.get(), row.fieldOffset));
  }
  return all;
}

/// Parses and applies any bytes as a property stream. Returns a broken rule, or "". The rules: the
/// stream begins with the bytes of the parsed entries; a fault lies after them and names the key
/// there; a stream with a fault changes no property.
inline std::string unsoundness(ClassRecord* record, const std::string& stream) {
  const StreamContents contents = readPropertyStream(*record, stream);
  std::string read;
  for (const StreamEntry& each : contents.entries) {
    read += entry(each.property->name.view(), each.value);
  }
  const Ref<Object> object = RuntimeNewObject(record);
  _WindowSupport.Windows.clear();
  const std::vector<Variant> before = valuesOf(object);
  const std::string sentence = faultOf(object, stream);
  // Keys are not case-sensitive, so the whole stream is compared without case.
  const auto lower = [](unsigned char letter) { return std::tolower(letter); };
  const bool isSame = std::ranges::equal(read, stream.substr(0, read.size()), {}, lower, lower);
  if (!isSame) return "the stream does not begin with the entries";
  if (contents.fault.has_value() == (read.size() == stream.size()))
    return "a fault after the last byte, or unread bytes without a fault";
  if (contents.fault.has_value() == sentence.empty())
    return "a message without a fault, or a fault without a message";
  if (!contents.fault) return "";
  const auto& [key, offset, what] = *contents.fault;
  if (offset < read.size() || offset > stream.size()) return "the offset " + std::to_string(offset);
  const std::string rest = stream.substr(read.size());
  std::string shown(rest.substr(0, std::min<std::size_t>(rest.find(' '), 40)));
  for (char& letter : shown) letter = letter > ' ' && letter <= '~' ? letter : '?';
  if (key != shown) return "the key " + key;
  if (valuesOf(object) != before) return "a stream with a fault changes properties";
  return sentence.starts_with("The form of " + std::string(record->name.view()) +
                              " is damaged at byte " + std::to_string(offset) + ", key \"" + key)
             ? ""
             : sentence;
}

}  // namespace veldrin::test
