#include "places/ZoneName.h"

#include <algorithm>
#include <cstddef>

namespace veldrin {
namespace {

// ASCII only: the functions of <cctype> depend on the locale of the process.
bool isCapital(char character) {
  return character >= 'A' && character <= 'Z';
}

char small(char character) {
  return isCapital(character) ? static_cast<char>(character - 'A' + 'a') : character;
}

bool isLetter(char character) {
  return small(character) >= 'a' && small(character) <= 'z';
}

bool isZoneLetter(char character) {
  return isLetter(character) || (character >= '0' && character <= '9') ||
         std::string_view("_-+/").find(character) != std::string_view::npos;
}

}  // namespace

bool isZoneName(std::string_view name) {
  constexpr std::size_t LongestName = 100;
  return !name.empty() && name.size() <= LongestName && isCapital(name.front()) &&
         name.back() != '/' && name.find("//") == std::string_view::npos &&
         std::ranges::all_of(name, isZoneLetter);
}

bool isZoneSpelling(std::string_view text) {
  if (text.empty() || !isLetter(text.front())) return false;
  std::string name = foldedZone(text);
  name.front() = 'A';  // any letter may begin a spelling
  return isZoneName(name);
}

std::string foldedZone(std::string_view text) {
  std::string folded(text);
  for (char& character : folded) character = character == ' ' ? '_' : small(character);
  return folded;
}

std::string_view lastPart(std::string_view name) {
  return name.substr(name.rfind('/') + 1);  // npos + 1 is 0
}

}  // namespace veldrin
