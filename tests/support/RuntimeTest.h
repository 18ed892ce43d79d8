#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "apps/VeldrinParts.h"
#include "calendar/OutputFile.h"
#include "daystatus/Veldrin.h"
#include "reflection/Introspection.h"
#include "reflection/ReflectionClasses.h"
#include "shell/Runtime.h"
#include "shell/objects/ClassRecord.h"
#include "shell/objects/PropertyAccess.h"
#include "tests/support/MemoryItem.h"
#include "tests/support/Person.h"
#include "tests/support/ValuesTest.h"
#include "tests/support/WatchedToolkit.h"

namespace veldrin::test {

/// A person, and a host at 2024-06-21 12:00, daylight-saving time, UTC-7.
class PersonTest : public testing::Test {
 protected:
  PersonTest() { host.setClock({2024, 6, 21, 12, 0, 0}, -7.0); }

  FakeHost host;
  const std::unique_ptr<Person> person = newPerson();
  WatchedToolkit toolkit{*person};
};

/// A `PersonTest` with a runtime.
class RuntimeTest : public PersonTest {
 protected:
  Runtime runtime{host, toolkit};
};

/// A `RuntimeTest` with an open window, as at the start of the event loop.
class WindowTest : public RuntimeTest {
 protected:
  void SetUp() override {
    OutputFile::_Initialize();
    reopen();
  }
  void TearDown() override { finalizeGlobals(); }

  static Ref<Veldrin> window() { return implicit::Veldrin(); }

  /// Replaces the window by a new one, which reads the host's present time.
  void reopen() {
    _WindowSupport.Windows.clear();
    static_cast<void>(window());
    person->turnToWindow();
  }

  void type(std::string_view field, std::string_view text) const {
    person->type(field, text);
    person->leave(field);
  }

  /// Adds the year to the list and chooses it.
  void choose(std::string_view year) const {
    const Ref<PopupMenu> years = window()->WhichYear();
    years->AddRow(String(year));
    person->choose("WhichYear", years->ListCount() - 1);
  }

  void fillIn(std::string_view year, std::string_view latitude, std::string_view longitude,
              std::string_view zone) const {
    choose(year);
    type("Latitude", latitude);
    type("Longitude", longitude);
    type("TimeZone", zone);
  }

  [[nodiscard]] std::string status() const { return person->shown("Status"); }

  /// Presses `GenerateButton` and returns the calendar.
  std::string generate() {
    const Ref<MemoryItem> item = New<MemoryItem>();
    toolkit.saveAnswers.emplace_back(item);
    person->press("GenerateButton");
    return *item->content;
  }
};

/// A `WindowTest` with all classes built and none described. Checks that all objects are released.
class ReflectionTest : public WindowTest {
 protected:
  void SetUp() override {
    before_ = liveObjectCount();
    WindowTest::SetUp();
    initializeClasses();
    initializeReflectionClasses();
  }
  void TearDown() override {
    Introspection::finalizeReflection();
    WindowTest::TearDown();
    EXPECT_EQ(liveObjectCount(), before_);
  }

 private:
  std::int64_t before_ = 0;
};

inline std::vector<ClassRecord*> controlClasses() {
  return {Placard::__Lookup(),   StaticText::__Lookup(), PushButton::__Lookup(),
          PopupMenu::__Lookup(), TextField::__Lookup(),  CheckBox::__Lookup()};
}

/// Replaces the handler of an event in a class, and restores it at destruction. A control with its
/// own handler calls only its own.
class BoundEvent {
 public:
  template <class Handler>
  BoundEvent(ClassRecord* record, const String& event, Handler handler)
      : row_(record->eventRows[FindEvent(*record, event).value()]), before_(row_.handler) {
    row_.handler = reinterpret_cast<Function>(+handler);
  }
  BoundEvent(const BoundEvent&) = delete;
  BoundEvent& operator=(const BoundEvent&) = delete;
  ~BoundEvent() { row_.handler = before_; }

 private:
  EventRow& row_;
  Function before_;
};

/// While it exists, the stack of the process is limited to 1 MiB.
class SmallStack {
 public:
  SmallStack() {
    EXPECT_EQ(getrlimit(RLIMIT_STACK, &before_), 0);
    const rlimit small{rlim_t{1024} * 1024, before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_STACK, &small), 0);
    measureStack();
  }
  SmallStack(const SmallStack&) = delete;
  SmallStack& operator=(const SmallStack&) = delete;
  ~SmallStack() {
    setrlimit(RLIMIT_STACK, &before_);
    measureStack();
  }

 private:
  rlimit before_{};
};

/// Read and write a property by name, through the class table.
inline Variant valueOf(const Ref<Object>& object, std::string_view key) {
  const PropertyRow* const row = FindProperty(*object->classRecord(), key);
  if (row == nullptr) return {};
  return RuntimeGenericGetter(row->reflectionGet, row->getter, object.get(), row->fieldOffset);
}
inline void setValue(const Ref<Object>& object, std::string_view key, const Variant& value) {
  const PropertyRow& row = *FindProperty(*object->classRecord(), key);
  RuntimeGenericSetter(row.reflectionSet, row.setter, object.get(), row.fieldOffset, value);
}

}  // namespace veldrin::test
