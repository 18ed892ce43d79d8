#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <memory>
#include <string>
#include <string_view>

#include "apps/VeldrinParts.h"
#include "calendar/OutputFile.h"
#include "daystatus/Veldrin.h"
#include "shell/Runtime.h"
#include "tests/support/FakeHost.h"
#include "tests/support/MemoryItem.h"
#include "tests/support/Person.h"
#include "tests/support/WatchedToolkit.h"

namespace veldrin::test {

/// A runtime with a person at it, and a host that stands at 2024-06-21 12:00 in a zone 8 hours west
/// with its daylight-saving hour.
class RuntimeTest : public testing::Test {
 protected:
  RuntimeTest() { host.stand({2024, 6, 21, 12, 0, 0}, -7.0); }

  FakeHost host;
  const std::unique_ptr<Person> person = newPerson();
  WatchedToolkit toolkit{*person};
  Runtime runtime{host, toolkit};
};

/// The same with the window open, as it is when the event loop begins; everything that was made is
/// given up again at the end of the test.
class WindowTest : public RuntimeTest {
 protected:
  void SetUp() override {
    OutputFile::_Initialize();
    reopen();
  }
  void TearDown() override { finalizeGlobals(); }

  static Ref<Veldrin> window() { return implicit::Veldrin(); }

  /// Opens the window anew, where the host stands now.
  void reopen() {
    runtime._WindowSupport.Windows.clear();
    static_cast<void>(window());
    person->turnToWindow();
  }

  void type(std::string_view field, std::string_view text) const {
    person->type(field, text);
    person->leave(field);
  }

  /// Picks a year, which the list need not have offered so far.
  void choose(std::string_view year) const {
    const Ref<PopupMenu> years = window()->WhichYear();
    years->AddRow(String(year));
    person->choose("WhichYear", years->ListCount() - 1);
  }

  [[nodiscard]] std::string status() const { return person->shown("Status"); }

  /// What a press of the button writes.
  std::string generate() {
    const Ref<MemoryItem> item = New<MemoryItem>();
    toolkit.saveAnswers.emplace_back(item);
    person->press("GenerateButton");
    return *item->content;
  }
};

/// The program has a stack of a megabyte for as long as this lives.
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

/// Runs the call and gives the full name of the class of what it raised, "" for nothing.
template <class Call>
std::string raisedBy(Call&& call) {
  try {
    call();
  } catch (const Raised& raised) {
    return std::string(raised.exception->classRecord()->name.view());
  }
  return "";
}

inline std::string text(const String& string) {
  return std::string(string.view());
}

}  // namespace veldrin::test
