#include "shell/objects/Object.h"

#include <gmock/gmock.h>

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
namespace {

using testing::ElementsAre;
using ObjectTest = RuntimeTest;

std::vector<std::string> lifeSteps;

class Ancestor : public Described<Ancestor, Object> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Ancestor";
  void __Init() { lifeSteps.emplace_back("Ancestor.__Init"); }
  void Destructor() { lifeSteps.emplace_back("Ancestor.Destructor"); }
  void __Exit() { lifeSteps.emplace_back("Ancestor.__Exit"); }
};

/// Inherits the steps and has none of its own.
class Parent : public Described<Parent, Ancestor> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Parent";
};

class Child final : public Described<Child, Parent> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Child";
  void __Init() { lifeSteps.emplace_back("Child.__Init"); }
  void Destructor() {
    const Ref<Child> self(this);
    lifeSteps.emplace_back("Child.Destructor");
  }
  void __Exit() { lifeSteps.emplace_back("Child.__Exit"); }
};

TEST_F(ObjectTest, AssignmentKeepsTheCountsEven) {
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

TEST_F(ObjectTest, LifeStepsRunOnceAClassInOrder) {
  lifeSteps.clear();
  New<Child>();
  EXPECT_THAT(lifeSteps, ElementsAre("Ancestor.__Init", "Child.__Init", "Child.Destructor",
                                     "Child.__Exit", "Ancestor.Destructor", "Ancestor.__Exit"));
}

TEST_F(ObjectTest, NilIsLockedAndUnlockedWithoutHarmAndIsNoReceiver) {
  RuntimeUnlockObject(nullptr);
  RuntimeLockUnlockObjects(nullptr, nullptr);
  EXPECT_EQ(raisedBy([] { Ref<Date>()->Day(1); }), "NilObjectException");
  EXPECT_EQ(raisedBy([] { RuntimeNewObject(nullptr); }), "NilObjectException");
  EXPECT_EQ(raisedBy([] { New<Delegate>()->call(); }), "FunctionNotFoundException");
}

TEST_F(ObjectTest, CastHandsOutAFreshCountOrRaises) {
  const Ref<Child> child = New<Child>();
  const Ref<Ancestor> cast = CheckCast<Ancestor>(child);
  EXPECT_EQ(child->referenceCount(), 2);
  EXPECT_EQ(raisedBy([&] { CheckCast<Date>(child); }), "IllegalCastException");
  EXPECT_EQ(raisedBy([] { CheckCast<Child>(New<Parent>()); }), "IllegalCastException");
  EXPECT_EQ(child->referenceCount(), 2);
  EXPECT_FALSE(CheckCast<Date>(nullptr));
  EXPECT_TRUE(RuntimeObjectIsa(child.get(), Parent::__Lookup()));
  EXPECT_TRUE(RuntimeObjectIsa(child.get(), nullptr));
  EXPECT_FALSE(RuntimeObjectIsa(child.get(), RuntimeException::__Lookup()));
  EXPECT_FALSE(RuntimeObjectIsa(nullptr, Parent::__Lookup()));
}

/// Lies in a window and is no control.
class Lying final : public Described<Lying, Object> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Lying";
  static void fillTable(ClassTable<Lying>& table) {
    table.implements<_PaneChild, &Lying::parent, &Lying::window>();
  }
  Ref<Object> parent() { return nullptr; }
  Ref<Window> window() { return lies; }
  Ref<Window> lies;
};

TEST_F(ObjectTest, SwapMakesTheControlMeAndItsWindowSelf) {
  const Ref<Window> window = New<Window>();
  const Ref<PushButton> button = New<PushButton>();
  window->_AddControl("Button"_s, button);
  const Ref<PushButton> alone = New<PushButton>();  // it outlives its window
  New<Window>()->_AddControl("Alone"_s, alone);
  EXPECT_TRUE(alone->Window());
  _WindowSupport.Windows.clear();
  const Ref<Date> date = New<Date>();
  const Ref<Lying> lying = New<Lying>();
  lying->lies = window;
  const std::pair<Ref<Object>, Ref<Object>> swaps[] = {{button, window},   {alone, nullptr},
                                                       {window, window},   {date, date},
                                                       {nullptr, nullptr}, {lying, window}};
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

TEST_F(ObjectTest, CallsThatCallThemselvesWithoutEndOverflowTheStack) {
  const SmallStack stack;
  const Ref<PushButton> button = New<PushButton>();
  _InstallInstanceEventHandler(button, "Action"_s, [](Object* control) {
    static_cast<PushButton*>(control)->userPressed();
  });
  static Ref<Delegate> endless;
  endless = RuntimeCreateDelegate(
      &Delegate::Invoke, [] { endless->call(); }, nullptr, "(  )"_s);
  const std::int64_t objects = liveObjectCount();
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(raisedBy([&] { button->userPressed(); }), "StackOverflowException");
    EXPECT_EQ(raisedBy([&] { endless->call(); }), "StackOverflowException");
    EXPECT_EQ(button->referenceCount(), 1);
    EXPECT_EQ(endless->referenceCount(), 1);
    EXPECT_EQ(liveObjectCount(), objects);
  }
  endless = nullptr;
}

TEST_F(ObjectTest, AChainOfAnyLengthIsGivenUp) {
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

/// Its steps fail.
class Failing final : public Described<Failing, Object> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Failing";
  void Destructor() { Raise<IOException>(); }
  void __Exit() { throw std::bad_alloc(); }
};

/// Gives out a reference to itself while it is destroyed.
class Returning final : public Described<Returning, Object> {
 public:
  static constexpr FixedString FullName = "ObjectTest.Returning";
  void Destructor() {
    ++destructions;
    last = Ref<Returning>(this);
  }
  void __Exit() { field = nullptr; }
  Ref<Date> field = New<Date>();
  static inline Ref<Returning> last;
  static inline int destructions = 0;
};

TEST_F(ObjectTest, AnObjectThatItsDestructorGivesOutLivesOnWithoutItsFields) {
  const std::int64_t objects = liveObjectCount();
  New<Returning>();
  ASSERT_TRUE(Returning::last);
  EXPECT_EQ(Returning::last->referenceCount(), 1);
  EXPECT_FALSE(Returning::last->field);
  EXPECT_EQ(liveObjectCount(), objects + 1);
  Returning::last = nullptr;
  EXPECT_EQ(liveObjectCount(), objects);
  EXPECT_EQ(Returning::destructions, 1);
}

TEST_F(ObjectTest, ExceptionsOfLifeStepsAreIgnored) {
  const std::int64_t objects = liveObjectCount();
  New<Failing>();
  EXPECT_EQ(liveObjectCount(), objects);
}

}  // namespace

/// Outside of the file's own names, so that the program has this one.
void raiseFromHere() {
  Raise<IOException>(28);
}

namespace {

TEST_F(ObjectTest, AnExceptionKnowsTheCallsThatItComesFrom) {
  Ref<RuntimeException> exception;
  try {
    try {
      raiseFromHere();
    } catch (const Raised& raised) {
      RuntimeReraiseException(raised.exception);  // it still comes from there
    }
  } catch (const Raised& raised) {
    exception = raised.exception;
  }
  ASSERT_TRUE(exception);
  std::string calls;
  const auto stack = exception->Stack();
  for (const String& call : stack->elements) calls += call.view();
  EXPECT_LT(calls.find("veldrin::test::raiseFromHere()"), calls.find("testing::Test::Run()"));
  EXPECT_NE(calls.find("testing::Test::Run()"), std::string::npos);
  EXPECT_TRUE(New<IOException>()->Stack()->elements.empty());
  EXPECT_EQ(raisedBy([] { RuntimeReraiseException(nullptr); }), "NilObjectException");
}

}  // namespace
}  // namespace veldrin::test
