#include "shell/objects/Object.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <algorithm>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "shell/values/Date.h"
#include "shell/window/PaneChild.h"
#include "shell/window/PushButton.h"
#include "shell/window/Window.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {

/// Not in the anonymous namespace, because the stack of an exception names exported functions only.
void raiseFromHere() {
  Raise<IOException>(28);
}

namespace {

using testing::ElementsAre;
using ObjectTest = RuntimeTest;

std::vector<std::string> hooks;

class Ancestor : public Described<Ancestor, Object> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Ancestor";
  void __Init() { hooks.emplace_back("Ancestor.__Init"); }
  void Destructor() { hooks.emplace_back("Ancestor.Destructor"); }
  void __Exit() { hooks.emplace_back("Ancestor.__Exit"); }
};

class Parent : public Described<Parent, Ancestor> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Parent";
};

class Child final : public Described<Child, Parent> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Child";
  void __Init() { hooks.emplace_back("Child.__Init"); }
  void Destructor() {
    const Ref<Child> self(this);
    hooks.emplace_back("Child.Destructor");
  }
  void __Exit() { hooks.emplace_back("Child.__Exit"); }
};

TEST_F(ObjectTest, AssignmentKeepsTheCountsBalanced) {
  const std::int64_t before = liveObjectCount();
  {
    Ref<Date> first = New<Date>();
    Ref<Date> second = New<Date>();
    RuntimeLockUnlockObjects(first.get(), first.get());
    EXPECT_EQ(first->referenceCount(), 1);
    const Ref<Date>& itself = first;
    first = itself;
    Ref<Date>& movedFrom = first;
    first = std::move(movedFrom);
    EXPECT_EQ(first->referenceCount(), 1);
    second = first;
    EXPECT_EQ(first->referenceCount(), 2);
    EXPECT_EQ(liveObjectCount(), before + 1);
    const Ref<Object> base = std::move(second);
    EXPECT_EQ(first->referenceCount(), 2);
  }
  EXPECT_EQ(liveObjectCount(), before);
}

TEST_F(ObjectTest, HooksRunOnceForEachClassInOrder) {
  hooks.clear();
  New<Child>();
  EXPECT_THAT(hooks, ElementsAre("Ancestor.__Init", "Child.__Init", "Child.Destructor",
                                 "Child.__Exit", "Ancestor.Destructor", "Ancestor.__Exit"));
}

TEST_F(ObjectTest, ACastAddsACountOrRaises) {
  const Ref<Child> child = New<Child>();
  const Ref<Ancestor> cast = CheckCast<Ancestor>(child);
  EXPECT_EQ(child->referenceCount(), 2);
  EXPECT_EQ(raisedBy([&] { CheckCast<Date>(child); }), "IllegalCastException");
  EXPECT_EQ(raisedBy([] { CheckCast<Child>(New<Parent>()); }), "IllegalCastException");
  EXPECT_EQ(child->referenceCount(), 2);
  EXPECT_FALSE(CheckCast<Date>(nullptr));
  EXPECT_EQ(raisedBy([] { CheckCast<Date>(nullptr)->Day(1); }), "NilObjectException");
  EXPECT_EQ(raisedBy([] { RuntimeNewObject(nullptr); }), "NilObjectException");
  EXPECT_TRUE(RuntimeObjectIsa(child.get(), Parent::__Lookup()));
  EXPECT_TRUE(RuntimeObjectIsa(child.get(), nullptr));
  EXPECT_FALSE(RuntimeObjectIsa(child.get(), RuntimeException::__Lookup()));
  EXPECT_FALSE(RuntimeObjectIsa(nullptr, Parent::__Lookup()));
}

/// An object in a window that is not a control.
class PaneItem final : public Described<PaneItem, Object> {
 public:
  static constexpr FixedString FullName = "ObjectTest.PaneItem";
  static void fillTable(ClassTable<PaneItem>& table) {
    table.implements<_PaneChild, &PaneItem::parent, &PaneItem::window>();
  }
  Ref<Object> parent() { return nullptr; }
  Ref<Window> window() { return inWindow; }
  Ref<Window> inWindow;
};

TEST_F(ObjectTest, SwapSetsMeToTheControlAndSelfToItsWindow) {
  const Ref<Window> window = New<Window>();
  const Ref<PushButton> button = New<PushButton>();
  window->_AddControl("Button"_s, button);
  const Ref<PushButton> alone = New<PushButton>();  // `alone` outlives its window
  New<Window>()->_AddControl("Alone"_s, alone);
  EXPECT_TRUE(alone->Window());
  _WindowSupport.Windows.clear();
  const Ref<Date> date = New<Date>();
  const Ref<PaneItem> item = New<PaneItem>();
  item->inWindow = window;
  const std::pair<Ref<Object>, Ref<Object>> swaps[] = {{button, window},   {alone, nullptr},
                                                       {window, window},   {date, date},
                                                       {nullptr, nullptr}, {item, window}};
  for (const auto& [before, after] : swaps) {
    const std::int32_t count = before ? before->referenceCount() : 0;
    {
      Ref<Object> Self = before;
      Ref<Object> Me;
      RuntimeSwapSelfAndMe(Self, Me);
      EXPECT_EQ(Self.get(), after.get());
      EXPECT_EQ(Me.get(), before.get());
    }
    EXPECT_EQ(before ? before->referenceCount() : 0, count);
  }
}

TEST_F(ObjectTest, EndlessRecursionRaises) {
  const SmallStack stack;
  const Ref<PushButton> button = New<PushButton>();
  _InstallInstanceEventHandler(button, "Action"_s, [](Object* control) {
    static_cast<PushButton*>(control)->userPressed();
  });
  static Ref<Delegate> endless;
  endless = RuntimeCreateDelegate(
      &Delegate::Invoke, [] { endless->call(); }, nullptr, "(  )"_s);
  const std::int64_t objects = liveObjectCount();
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_EQ(raisedBy([&] { button->userPressed(); }), "StackOverflowException");
    EXPECT_EQ(raisedBy([&] { endless->call(); }), "StackOverflowException");
    EXPECT_EQ(button->referenceCount(), 1);
    EXPECT_EQ(endless->referenceCount(), 1);
    EXPECT_EQ(liveObjectCount(), objects);
  }
  endless = nullptr;
  EXPECT_EQ(raisedBy([] { New<Delegate>()->call(); }), "FunctionNotFoundException");
  // The limit does not depend on the order of the environment.
  const std::uintptr_t limit = detail::stackLimit;
  std::size_t count = 0;
  while (environ[count] != nullptr) ++count;
  std::reverse(environ, environ + count);
  measureStack();
  EXPECT_EQ(detail::stackLimit, limit);
}

TEST_F(ObjectTest, ALongChainIsReleasedWithoutOverflow) {
  const SmallStack stack;
  const std::int64_t objects = liveObjectCount();
  Ref<Pair> chain;
  for (int link = 0; link < 300'000; ++link) {
    const Ref<Pair> next = New<Pair>();
    next->Constructor(chain, chain);
    chain = next;
  }
  EXPECT_EQ(liveObjectCount(), objects + 300'000);
  chain = nullptr;
  EXPECT_EQ(liveObjectCount(), objects);
}

/// Stores a reference to itself during its destruction. Both hooks throw.
class Resurrecting final : public Described<Resurrecting, Object> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Resurrecting";
  void Destructor() {
    ++destructions;
    last = Ref<Resurrecting>(this);
    Raise<IOException>();
  }
  void __Exit() {
    field = nullptr;
    throw std::bad_alloc();
  }
  Ref<Date> field = New<Date>();
  static inline Ref<Resurrecting> last;
  static inline int destructions = 0;
};

TEST_F(ObjectTest, AnObjectReferencedByItsDestructorOutlivesIt) {
  const std::int64_t objects = liveObjectCount();
  New<Resurrecting>();
  ASSERT_TRUE(Resurrecting::last);
  EXPECT_EQ(Resurrecting::last->referenceCount(), 1);
  EXPECT_FALSE(Resurrecting::last->field);
  EXPECT_EQ(liveObjectCount(), objects + 1);
  Resurrecting::last = nullptr;
  EXPECT_EQ(liveObjectCount(), objects);
  EXPECT_EQ(Resurrecting::destructions, 1);
}

TEST_F(ObjectTest, AnExceptionHasTheStackOfItsRaise) {
  Ref<RuntimeException> exception;
  try {
    try {
      raiseFromHere();
    } catch (const Raised& raised) {
      RuntimeReraiseException(raised.exception);  // keeps the stack
    }
  } catch (const Raised& raised) {
    exception = raised.exception;
  }
  ASSERT_TRUE(exception);
  std::string calls;
  const auto stack = exception->Stack();
  for (const String& call : stack->elements) calls += call.view();
  // At the top, below at most a template and a frame of a sanitizer.
  ASSERT_GE(stack->elements.size(), 3U);
  EXPECT_TRUE(
      std::any_of(stack->elements.begin(), stack->elements.begin() + 3,
                  [](const String& call) { return call.view().ends_with("raiseFromHere()"); }));
  EXPECT_NE(calls.find("testing::Test::Run()"), std::string::npos);
  EXPECT_EQ(calls.find('/'), std::string::npos) << "a library is named without its folder";
  EXPECT_TRUE(New<IOException>()->Stack()->elements.empty());
  EXPECT_EQ(raisedBy([] { RuntimeReraiseException(nullptr); }), "NilObjectException");
}

}  // namespace
}  // namespace veldrin::test
