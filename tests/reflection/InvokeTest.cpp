#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "reflection/ClassInfo.h"
#include "reflection/ConstructorInfo.h"
#include "reflection/MethodInfo.h"
#include "reflection/NewInfo.h"
#include "reflection/PropertyInfo.h"
#include "shell/objects/NewArray.h"
#include "shell/window/TextStyle.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using namespace Introspection;
using testing::ElementsAre;

/// Has a property of most types, named by its type code.
class Values final : public Described<Values, Object> {
 public:
  static constexpr FixedString FullName = "Invoke.Test.Values";
  static void fillTable(ClassTable<Values>& table) {
    const auto fields = [&]<auto... Fields>(const auto&... names) {
      (table.property<Fields>(names), ...);
    };
    fields.template operator()<&Values::b, &Values::i1, &Values::i2, &Values::i4, &Values::i8,
                               &Values::u1, &Values::u2, &Values::u4, &Values::u8, &Values::f4,
                               &Values::f8, &Values::e, &Values::c, &Values::s, &Values::p,
                               &Values::object, &Values::date, &Values::texts, &Values::units>(
        "b"_s, "i1"_s, "i2"_s, "i4"_s, "i8"_s, "u1"_s, "u2"_s, "u4"_s, "u8"_s, "f4"_s, "f8"_s,
        "e"_s, "c"_s, "s"_s, "p"_s, "o<Object>"_s, "o<Date>"_s, "A1s"_s, "u1<FontUnits>"_s);
    table.readOnlyField<&Values::calls>("calls"_s);
    table.plainMethod<&Values::join>("join"_s);
    table.plainMethod<&Values::again>("again"_s);
    table.plainMethod<&Values::leave>("leave"_s);
    table.sharedMethod<&Values::twice>("twice"_s);
    table.sharedProperty<&Values::stored>("stored"_s);
    table.sharedProperty<std::int32_t, &Values::Computed, &Values::Computed>("computed"_s);
  }

  String join(String& text, std::int32_t& number, const String& end) {
    ++calls;
    number += 1;
    text = text + end;
    return text;
  }
  static std::int32_t twice(std::int32_t value) { return 2 * value; }
  /// Invokes itself by reflection.
  void again();
  /// Releases the test's reference and returns the number of the remaining ones.
  std::int32_t leave() {
    only = nullptr;
    return referenceCount();
  }
  static inline Ref<Object> only;

  static inline String stored;
  static std::int32_t Computed() { return 2 * half; }
  static void Computed(std::int32_t value) { half = value / 2; }
  static inline std::int32_t half = 0;

  bool b = false;
  std::int8_t i1 = 0;
  std::int16_t i2 = 0;
  std::int32_t i4 = 0;
  std::int64_t i8 = 0;
  std::uint8_t u1 = 0;
  std::uint16_t u2 = 0;
  std::uint32_t u4 = 0;
  std::uint64_t u8 = 0;
  float f4 = 0;
  double f8 = 0;
  Currency e;
  Color c;
  String s;
  void* p = nullptr;
  Ref<Object> object;
  Ref<Date> date;
  Ref<Array<String>> texts;
  FontUnits units{};
  std::int32_t calls = 0;
};

class Abstract : public Described<Abstract, Object> {
 public:
  static constexpr FixedString FullName = "Invoke.Test.Abstract";
  virtual void operation() = 0;
};

template <class Info>
Ref<Info> named(const Ref<Array<Ref<Info>>>& members, std::string_view name) {
  const auto found = std::ranges::find(members->elements, name,
                                       [](const Ref<Info>& each) { return each->Name().view(); });
  return found == members->elements.end() ? nullptr : *found;
}

Ref<PropertyInfo> property(ClassRecord* record, std::string_view name) {
  return named(ClassInfo::Lookup(record)->GetProperties(), name);
}

Ref<MethodInfo> method(ClassRecord* record, std::string_view name) {
  return named(ClassInfo::Lookup(record)->GetMethods(), name);
}

Ref<ConstructorInfo> constructor(ClassRecord* record) {
  return ClassInfo::Lookup(record)->GetConstructors()->elements.back();
}

Ref<Array<Variant>> arguments(std::vector<Variant> values) {
  return newArray(std::move(values));
}

void Values::again() {
  method(Values::__Lookup(), "again")->Invoke(Ref<Object>(this), arguments({}));
}

using InvokeTest = ReflectionTest;

TEST_F(InvokeTest, APropertyOfEachTypeAcceptsItsOwnValues) {
  const Ref<Date> day = New<Date>();
  const auto texts = newArray<String>({"a"_s});
  int target = 0;
  const struct {
    std::string_view code;
    Variant accepted, refused;
    bool isNullable = false;
    std::string_view raised = "TypeMismatchException";
  } rows[] = {
      {"b", true, 1},
      {"i1", std::int8_t{-128}, 128},
      {"i2", std::int16_t{-300}, std::uint16_t{40000}},
      {"i4", -70000, 7.5},
      {"i8", std::int64_t{-1}, ~std::uint64_t{0}},
      {"u1", std::uint8_t{255}, -1},
      {"u2", std::uint16_t{65535}, 65536},
      {"u4", ~std::uint32_t{0}, std::int8_t{-1}},
      {"u8", ~std::uint64_t{0}, std::int64_t{-1}},
      {"f4", 1.5F, 0.1},
      {"f8", -0.25, "1.0"_s},
      {"e", Currency{12345}, std::int64_t{1}},
      {"c", White, "white"_s},
      {"s", "text"_s, true, true},
      {"p", static_cast<void*>(&target), std::uint64_t{8}, true},
      {"o<Object>", day, 1.0, true},
      {"o<Date>", day, New<Pair>(), true, "IllegalCastException"},
      {"A1s", texts, newArray<std::int32_t>({1}), true},
      {"u1<FontUnits>", std::uint8_t{1}, 256},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    const Ref<Values> values = New<Values>();
    const Ref<PropertyInfo> each = property(Values::__Lookup(), row.code);
    ASSERT_TRUE(each);
    EXPECT_EQ(text(each->PropertyType()->QualifiedName()),
              text(GetInfoFromTypeCode(String(row.code))->QualifiedName()));
    const Variant initial = each->Value(values);
    each->Value(values, row.accepted);
    EXPECT_EQ(each->Value(values), row.accepted);
    EXPECT_EQ(raisedBy([&] { each->Value(values, row.refused); }), row.raised);
    EXPECT_EQ(each->Value(values), row.accepted);
    EXPECT_EQ(raisedBy([&] { each->Value(values, {}); }), row.isNullable ? "" : row.raised);
    EXPECT_EQ(each->Value(values), row.isNullable ? initial : row.accepted);
  }
  const Ref<Values> values = New<Values>();
  property(Values::__Lookup(), "u1<FontUnits>")->Value(values, 1);
  EXPECT_EQ(values->units, FontUnits{1});
}

TEST_F(InvokeTest, APropertyNeedsAnObjectOfItsClass) {
  const Ref<PropertyInfo> width = property(Veldrin::__Lookup(), "Width");
  const Ref<Veldrin> view = window();
  width->Value(view, 321);
  EXPECT_EQ(width->Value(view), Variant(321));
  for (const Ref<Object>& object : {Ref<Object>(New<Date>()), Ref<Object>()}) {
    const char* const raised = object ? "IllegalCastException" : "NilObjectException";
    EXPECT_EQ(raisedBy([&] { static_cast<void>(width->Value(object)); }), raised);
    EXPECT_EQ(raisedBy([&] { width->Value(object, 1); }), raised);
  }

  const Ref<PropertyInfo> calls = property(Values::__Lookup(), "calls");
  EXPECT_TRUE(calls->CanRead() && !calls->CanWrite());
  EXPECT_EQ(raisedBy([&] { calls->Value(New<Values>(), 1); }), "RuntimeException");
  const auto bare = NewInfo<PropertyInfoImp>(nullptr, Values::__Lookup());
  EXPECT_EQ(raisedBy([&] { static_cast<void>(bare->Value(New<Values>())); }), "RuntimeException");
}

TEST_F(InvokeTest, ASharedPropertyNeedsNoObject) {
  const struct {
    std::string_view name;
    Variant first, second, refused;
  } rows[] = {{"stored", "one"_s, "two"_s, 1}, {"computed", 8, 6, "six"_s}};
  for (const auto& row : rows) {
    const Ref<PropertyInfo> shared = property(Values::__Lookup(), row.name);
    EXPECT_TRUE(shared->IsShared() && shared->IsPublic() && shared->CanWrite());
    shared->Value(nullptr, row.first);
    EXPECT_EQ(shared->Value(New<Values>()), row.first);
    shared->Value(New<Values>(), row.second);
    EXPECT_EQ(shared->Value(nullptr), row.second);
    EXPECT_EQ(raisedBy([&] { shared->Value(nullptr, row.refused); }), "TypeMismatchException");
    EXPECT_EQ(raisedBy([&] { shared->Value(New<Date>(), row.first); }), "IllegalCastException");
    EXPECT_EQ(shared->Value(nullptr), row.second);
  }
  Values::stored = String();
}

TEST_F(InvokeTest, EndlessRecursionRaises) {
  const SmallStack stack;
  const Ref<Values> values = New<Values>();
  EXPECT_EQ(raisedBy([&] { values->again(); }), "StackOverflowException");
  EXPECT_EQ(values->referenceCount(), 1);
}

TEST_F(InvokeTest, ACallReturnsTheResultAndTheReferences) {
  const Ref<MethodInfo> join = method(Values::__Lookup(), "join");
  EXPECT_EQ(text(join->ReturnType()->QualifiedName()), "String");
  std::string parameters;
  const auto described = join->GetParameters();
  for (const Ref<ParameterInfo>& each : described->elements) {
    parameters += text(each->ParameterType()->Name()) + (each->IsByRef() ? "& " : " ");
  }
  EXPECT_EQ(parameters, "String& Int32& String ");
  const Ref<Values> values = New<Values>();
  const auto given = arguments({"a"_s, std::int8_t{4}, "b"_s});
  EXPECT_EQ(join->InvokeForResult(values, given), Variant("ab"_s));
  EXPECT_THAT(given->elements, ElementsAre(Variant("ab"_s), Variant(5), Variant("b"_s)));

  const Ref<MethodInfo> twice = method(Values::__Lookup(), "twice");
  EXPECT_TRUE(twice->IsShared());
  const auto number = [] { return arguments({21}); };
  EXPECT_EQ(twice->InvokeForResult(nullptr, number()), Variant(42));
  EXPECT_EQ(twice->InvokeForResult(New<Date>(), number()), Variant(42));

  Values::only = New<Values>();
  const Ref<MethodInfo> leave = method(Values::__Lookup(), "leave");
  EXPECT_EQ(leave->InvokeForResult(Values::only, arguments({})), Variant(1));

  const Ref<MethodInfo> hasKey = method(Dictionary::__Lookup(), "HasKey");
  EXPECT_EQ(hasKey->InvokeForResult(New<Dictionary>(), number()), Variant(false));
}

TEST_F(InvokeTest, AnInvalidCallRaisesBeforeTheMethodRuns) {
  const Ref<MethodInfo> join = method(Values::__Lookup(), "join");
  const Ref<Values> values = New<Values>();
  const Variant text("a"_s);
  const Variant number(1);
  const struct {
    std::string_view what;
    Ref<Object> object;
    std::optional<std::vector<Variant>> given;
    std::string_view raised;
  } rows[] = {
      {"object of another class", New<Date>(), {{text, number, text}}, "IllegalCastException"},
      {"nil object", nullptr, {{text, number, text}}, "NilObjectException"},
      {"nil array", values, {}, "NilObjectException"},
      {"too few arguments", values, {{text, number}}, "OutOfBoundsException"},
      {"too many arguments", values, {{text, number, text, text}}, "OutOfBoundsException"},
      {"first argument of a wrong type", values, {{number, number, text}}, "TypeMismatchException"},
      {"last argument of a wrong type", values, {{text, number, true}}, "TypeMismatchException"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const auto given = row.given ? arguments(*row.given) : nullptr;
    EXPECT_EQ(raisedBy([&] { join->Invoke(row.object, given); }), row.raised);
    EXPECT_TRUE(!given || given->elements == *row.given);
  }
  EXPECT_EQ(values->calls, 0);
  EXPECT_EQ(raisedBy([&] { New<MethodInfo>()->Invoke(values, arguments({})); }),
            "FunctionNotFoundException");
}

TEST_F(InvokeTest, AConstructorCreatesAnObject) {
  const auto parameter = constructor(ParameterInfo::__Lookup())->Invoke(arguments({"&f8"_s}));
  EXPECT_TRUE(CheckCast<ParameterInfo>(parameter)->IsByRef());
  EXPECT_EQ(parameter->referenceCount(), 1);

  const Ref<Object> pair = constructor(Pair::__Lookup())->Invoke(arguments({1.0, "one"_s}));
  const auto pairs = newArray<Ref<Pair>>({CheckCast<Pair>(pair)});
  const auto map = constructor(Dictionary::__Lookup())->Invoke(arguments({pairs}));
  const auto read = CheckCast<Dictionary>(map);
  EXPECT_EQ(read->Value(1.0), Variant("one"_s));
  EXPECT_EQ(raisedBy([&] { read->Remove(1); }), "KeyNotFoundException");
  read->Remove(1.0);
  EXPECT_EQ(read->Lookup(1.0, 7), Variant(7));
  read->Value("a"_s, 1);
  read->Clear();
  EXPECT_EQ(read->Count(), 0);

  // This class inherits its constructor.
  _WindowSupport.Windows.clear();
  const Ref<Object> view = constructor(Veldrin::__Lookup())->Invoke(arguments({}));
  EXPECT_EQ(view, window());
  EXPECT_TRUE(window()->isOpen());

  // This class has no row for a constructor.
  const Ref<Object> failure = constructor(IOException::__Lookup())->Invoke(arguments({}));
  EXPECT_EQ(failure->classRecord(), IOException::__Lookup());
}

TEST_F(InvokeTest, AnInvalidConstructionLeavesNoObject) {
  const std::vector<Variant> one{1};
  const auto raised = [](ClassRecord* record, const Ref<Array<Variant>>& given) {
    const Ref<ConstructorInfo> info = constructor(record);
    const std::int64_t before = liveObjectCount();
    std::string name = raisedBy([&] { static_cast<void>(info->Invoke(given)); });
    EXPECT_EQ(liveObjectCount(), before);
    return name;
  };
  EXPECT_EQ(raised(ParameterInfo::__Lookup(), nullptr), "NilObjectException");
  EXPECT_EQ(raised(ParameterInfo::__Lookup(), arguments({})), "OutOfBoundsException");
  EXPECT_EQ(raised(ParameterInfo::__Lookup(), arguments(one)), "TypeMismatchException");
  EXPECT_EQ(raised(IOException::__Lookup(), arguments(one)), "OutOfBoundsException");
  EXPECT_EQ(raised(Veldrin::__Lookup(), arguments(one)), "OutOfBoundsException");
  EXPECT_EQ(raised(Abstract::__Lookup(), arguments({})), "UnsupportedFormatException");
  EXPECT_THAT(_WindowSupport.Windows, testing::SizeIs(1));
}

}  // namespace
}  // namespace veldrin::test
