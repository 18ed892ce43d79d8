#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Fuzz.h"
#include "shell/window/CheckBox.h"
#include "shell/window/Placard.h"
#include "shell/window/PopupMenu.h"
#include "shell/window/PushButton.h"
#include "shell/window/StaticText.h"
#include "shell/window/TextField.h"
#include "shell/window/Window.h"
#include "tests/support/SoundStream.h"

// Input: the first byte selects a class; the rest is a property stream for one of its objects.

namespace veldrin::fuzz {
namespace {

ClassRecord* recordOf(std::uint8_t choice) {
  ClassRecord* const records[] = {
      Placard::__Lookup(),   StaticText::__Lookup(), PushButton::__Lookup(), PopupMenu::__Lookup(),
      TextField::__Lookup(), CheckBox::__Lookup(),   Window::__Lookup()};
  return records[choice % std::size(records)];
}

Ref<Object> newObject(ClassRecord* record) {
  Ref<Object> object = RuntimeNewObject(record);
  _WindowSupport.Windows.clear();
  return object;
}

/// Checks that a valid stream sets the same values as its entries one by one.
void checkEntries(ClassRecord* record, const std::string& stream) {
  const StreamContents contents = readPropertyStream(*record, stream);
  if (contents.fault) return;
  const Ref<Object> atOnce = newObject(record);
  const Ref<Object> oneByOne = newObject(record);
  _SetProperties(atOnce, String(stream));
  for (const StreamEntry& each : contents.entries) {
    _SetProperties(oneByOne, String(test::entry(each.property->name.view(), each.value)));
  }
  require(test::valuesOf(atOnce) == test::valuesOf(oneByOne),
          "a stream sets the same values as its entries one by one");
}

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  if (size == 0) return 0;
  fuzz::World::instance();
  const fuzz::ObjectLeakGuard objectLeakGuard;
  ClassRecord* const record = fuzz::recordOf(data[0]);
  const std::string stream(data + 1, data + size);
  const std::string unsound = test::unsoundness(record, stream);
  fuzz::require(unsound.empty(), unsound);
  fuzz::checkEntries(record, stream);
  return 0;
}
