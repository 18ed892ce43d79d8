#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "reflection/ArrayInfo.h"
#include "reflection/ClassInfo.h"
#include "reflection/ConstructorInfo.h"
#include "reflection/Introspection.h"
#include "reflection/MethodInfo.h"
#include "reflection/NewInfo.h"
#include "reflection/PropertyInfo.h"
#include "reflection/StructureInfo.h"
#include "shell/files/Writeable.h"
#include "shell/objects/NewArray.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using namespace Introspection;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr AttributeRow OnlyHidden[]{veldrin::Hidden};

/// Has a property of its own type, and hidden members.
class Node : public Described<Node, Object> {
 public:
  static constexpr FixedString FullName = "Reflection.Test.Node";
  static void fillTable(ClassTable<Node>& table) {
    table.property<&Node::next>("next"_s);
    table.property<&Node::secret>("secret"_s, PublicHidden);
    table.plainMethod<&Node::Constructor>("Constructor"_s, PublicHidden);
    table.plainMethod<&Node::step>("step"_s, Private);
    table.sharedMethod<&Node::twice>("twice"_s, PublicHidden);
  }
  void Constructor() {}
  Ref<Node> step(const Ref<Node>& /*other*/) { return next; }
  static std::int32_t twice(std::int32_t value) { return 2 * value; }

  Ref<Node> next;
  bool secret = false;
};

class HiddenNode : public Described<HiddenNode, Node> {
 public:
  static constexpr FixedString FullName = "Reflection.Test.HiddenNode";
  static void fillTable(ClassTable<HiddenNode>& table) { table.attributes(OnlyHidden); }
};

class NodeOfHidden final : public Described<NodeOfHidden, HiddenNode> {
 public:
  static constexpr FixedString FullName = "Reflection.Test.NodeOfHidden";
  static void fillTable(ClassTable<NodeOfHidden>& table) { table.attributes(Public.attributes); }
};

class TypeInformationTest : public ReflectionTest {
 protected:
  TypeInformationTest() { NodeOfHidden::__ctblinit(); }
};

Ref<TypeInfo> typeOf(std::string_view code) {
  return GetInfoFromTypeCode(String(code));
}

std::string nameOf(const Ref<TypeInfo>& type) {
  return type ? text(type->QualifiedName()) : "nil";
}

template <class Info>
std::vector<std::string> namesOf(const Ref<Array<Ref<Info>>>& members) {
  std::vector<std::string> names;
  for (const Ref<Info>& member : members->elements) names.push_back(text(member->Name()));
  return names;
}

std::vector<std::string> attributesOf(const MemberInfo& member) {
  std::vector<std::string> names;
  const auto attributes = member.GetAttributes();
  for (const auto& attribute : attributes->elements) names.push_back(text(attribute->Name));
  return names;
}

TEST_F(TypeInformationTest, EachIntrinsicCodeHasOneType) {
  const struct {
    std::string className;
    const char* codesAndNames;
  } rows[] = {
      {"GenericPrimitiveTypeInfo",
       "b Boolean i1 Int8 i2 Int16 i4 Int32 i8 Int64 u1 UInt8 u2 UInt16 u4 UInt32 u8 UInt64 "
       "f4 Single f8 Double e Currency c Color s String ?<OSType> OSType"},
      {"VariantInfo", "v Variant"},
      {"PointerTypeInfo",
       "p Ptr ?<CString> CString ?<PString> PString ?<WString> WString ?<CFStringRef> CFStringRef "
       "?<WindowPtr> WindowPtr"},
      {"ClassInfo", "o<Object> Object"},
  };
  std::int32_t count = 0;
  for (const auto& row : rows) {
    std::istringstream words(row.codesAndNames);
    for (std::string code, name; words >> code >> name; ++count) {
      SCOPED_TRACE(code);
      const Ref<TypeInfo> type = typeOf(code);
      ASSERT_TRUE(type);
      EXPECT_EQ(typeOf(code), type);
      EXPECT_EQ(nameOf(type), name);
      EXPECT_EQ(text(type->classRecord()->name), "Introspection." + row.className);
      EXPECT_EQ(type->IsPrimitive(), row.className.find("Type") != std::string::npos);
      EXPECT_EQ(type->IsPointer(), row.className == "PointerTypeInfo");
    }
  }
  EXPECT_EQ(MakeIntrinsicTypeCodeMap()->Count(), count);
}

TEST_F(TypeInformationTest, CodesAreArraysClassesEnumerationsOrStructures) {
  const Ref<TypeInfo> row = typeOf("A1i4");
  EXPECT_EQ(row->GetArrayRank(), 1);
  EXPECT_EQ(row->GetElementType(), typeOf("i4"));
  EXPECT_TRUE(row->IsArray() && row->HasElementType());
  EXPECT_EQ(typeOf("A01i4"), row);
  EXPECT_EQ(ArrayInfo::Lookup(1, typeOf("i4")), row);
  for (const auto& [code, name] : {std::pair("A1i4", "Int32()"),
                                   {"A2s", "String(,)"},
                                   {"A3A1o<Veldrin.Veldrin>", "Veldrin.Veldrin()(,,)"},
                                   {"o<Date>", "Date"},
                                   {"o<NoSuchClass>", "Object"},
                                   {"o<>", "Object"},
                                   {"u1<Text.FontUnits>", "Text.FontUnits"},
                                   {"A1x", "nil"},
                                   {"x<NoSuchClass>", "nil"}}) {
    EXPECT_EQ(nameOf(typeOf(code)), name) << code;
  }
  EXPECT_EQ(text(typeOf("A1o<Veldrin.Veldrin>")->Name()), "Veldrin()");
  EXPECT_EQ(typeOf("A1000i4")->GetArrayRank(), 1000);
  EXPECT_EQ(raisedBy([] { ArrayInfo::Lookup(1, nullptr); }), "NilObjectException");
  for (const std::int32_t rank : {INT32_MIN, 0, 1001, INT32_MAX}) {
    EXPECT_EQ(raisedBy([&] { ArrayInfo::Lookup(rank, row); }), "OutOfBoundsException") << rank;
  }
  const Ref<TypeInfo> units = typeOf("u1<Text.FontUnits>");
  EXPECT_TRUE(units->IsEnum() && units->IsValueType() && !units->IsPrimitive());
  EXPECT_FALSE(row->IsValueType() || typeOf("o<Date>")->IsValueType());
  EXPECT_EQ(text(units->Name()), "FontUnits");
  EXPECT_TRUE(RuntimeObjectIsa(typeOf("t<S>").get(), StructureInfo::__Lookup()));
  // The name of a registered class is found after any letter.
  EXPECT_TRUE(typeOf("t<Date>")->IsClass());
}

TEST_F(TypeInformationTest, AnObjectHasTheTypeOfItsClass) {
  EXPECT_FALSE(GetType(nullptr));
  EXPECT_EQ(GetType(New<Date>()), ClassInfo::Lookup(Date::__Lookup()));
  EXPECT_EQ(nameOf(GetType(window())), "Veldrin.Veldrin");
  EXPECT_EQ(nameOf(GetType(newArray<String>({}))), "Object");
  EXPECT_EQ(nameOf(GetType(GetType(New<Date>()))), "Introspection.ClassInfo");
  const Ref<ClassInfo> writeable = ClassInfo::Lookup(Writeable::__Lookup());
  EXPECT_TRUE(writeable->IsInterface() && !writeable->IsClass());
  EXPECT_THAT(writeable->GetConstructors()->elements, IsEmpty());
}

TEST_F(TypeInformationTest, AClassIsASubclassOfItselfAndItsBases) {
  const auto info = [](std::string_view name) { return ClassInfo::Lookup(String(name)); };
  const Ref<ClassInfo> status = info("StaticText");
  const Ref<TypeInfo> number = typeOf("i4");
  for (const Ref<ClassInfo>& base : {status, info("Control"), info("Object")}) {
    EXPECT_TRUE(status->IsSubclassOf(base));
    EXPECT_EQ(base->IsSubclassOf(status), base == status);
  }
  EXPECT_FALSE(status->IsSubclassOf(nullptr) || status->IsSubclassOf(number) ||
               number->IsSubclassOf(number));
}

TEST_F(TypeInformationTest, AClassListsTheMembersThatAreNotHidden) {
  const Ref<ClassInfo> node = ClassInfo::Lookup(Node::__Lookup());
  EXPECT_EQ(nameOf(node), "Reflection.Test.Node");
  EXPECT_EQ(text(node->Name()), "Node");
  EXPECT_THAT(namesOf(node->GetProperties()), ElementsAre("next"));
  EXPECT_THAT(namesOf(node->GetMethods()), ElementsAre("step"));
  EXPECT_EQ(node->GetProperties()->elements[0]->PropertyType(), node);

  // The declared constructor is hidden, so the class has a nameless one.
  const Ref<Array<Ref<ConstructorInfo>>> constructors = node->GetConstructors();
  ASSERT_EQ(constructors->elements.size(), 1U);
  EXPECT_EQ(text(constructors->elements[0]->Name()), "");

  // The lists are copies.
  node->GetMethods()->elements.clear();
  constructors->elements.clear();
  EXPECT_EQ(node->GetMethods()->elements.size(), 1U);
  EXPECT_EQ(node->GetConstructors()->elements.size(), 1U);
}

TEST_F(TypeInformationTest, AHiddenClassHasNoDescription) {
  EXPECT_FALSE(ClassInfo::Lookup(HiddenNode::__Lookup()));
  EXPECT_FALSE(ClassInfo::Lookup("Reflection.Test.HiddenNode"_s));
  EXPECT_FALSE(GetType(New<HiddenNode>()));
  const Ref<ClassInfo> derived = ClassInfo::Lookup(NodeOfHidden::__Lookup());
  ASSERT_TRUE(derived);
  EXPECT_FALSE(derived->BaseType());
  EXPECT_TRUE(derived->IsSubclassOf(ClassInfo::Lookup(Node::__Lookup())));
  EXPECT_THAT(attributesOf(*derived), IsEmpty());
  EXPECT_TRUE(derived->IsPublic());
}

TEST_F(TypeInformationTest, ScopeAndSharedAreNotListedAsAttributes) {
  const auto row = [](std::string_view name) {
    const auto own = Node::__Lookup()->ownMethods();
    return &*std::ranges::find(own, name, [](const MethodRow& each) { return each.name.view(); });
  };
  const auto hidden = NewInfo<MethodInfoImp>(row("twice"), Node::__Lookup());
  EXPECT_THAT(attributesOf(*hidden), ElementsAre("Hidden"));
  EXPECT_EQ(hidden->GetAttributes()->elements[0]->Value, Variant());
  EXPECT_TRUE(hidden->IsPublic() && !hidden->CanAccess() && hidden->IsShared());

  const auto step = NewInfo<MethodInfoImp>(row("step"), Node::__Lookup());
  EXPECT_THAT(attributesOf(*step), IsEmpty());
  EXPECT_TRUE(step->IsPrivate() && !step->IsPublic() && !step->IsShared());

  constexpr AttributeRow Old[]{
      {"__Scope"_s, "Global"_s, true}, {"Deprecated"_s, "Newer"_s, true}, veldrin::Shared};
  PropertyRow property;
  property.type = "f8"_s;
  property.attributes = Old;
  const auto old = NewInfo<PropertyInfoImp>(&property, nullptr);
  EXPECT_THAT(attributesOf(*old), ElementsAre("Deprecated"));
  EXPECT_EQ(old->GetAttributes()->elements[0]->Value, Variant("Newer"_s));
  EXPECT_TRUE(old->IsShared() && old->IsGlobal() && !old->IsPublic());
  property.attributes = {};
  EXPECT_TRUE(NewInfo<PropertyInfoImp>(&property, nullptr)->IsPublic());
}

TEST_F(TypeInformationTest, ArraysNestedTooDeeplyHaveNoType) {
  std::string code;
  for (int depth = 0; depth < 1'000'000; ++depth) code += "A1";
  const String deep(code + "i4");
  const std::int64_t before = liveObjectCount();
  EXPECT_FALSE(GetInfoFromTypeCode(deep));
  finalizeReflection();
  EXPECT_EQ(liveObjectCount(), before);
  EXPECT_EQ(nameOf(typeOf(code.substr(0, 2000) + "i4")).size(), std::string("Int32").size() + 2000);
  EXPECT_FALSE(typeOf(code.substr(0, 2002) + "i4"));
  EXPECT_FALSE(typeOf("A2A999i4"));
}

TEST_F(TypeInformationTest, AnInterruptedDescriptionIsUndone) {
  ClassRecord& record = *Node::__Lookup();
  // Describing the last property fails after the first has referred to the class itself.
  GetFQNTypeInfoMap()->Value("NoType"_s, 1);
  const std::vector<PropertyRow> sound = record.propertyRows;
  record.propertyRows.back().type = "o<NoType>"_s;
  for (const char* const code : {"o<Reflection.Test.Node>", "A1o<Reflection.Test.Node>"}) {
    EXPECT_EQ(raisedBy([&] { typeOf(code); }), "TypeMismatchException") << code;
  }
  record.propertyRows = sound;
  const Ref<ClassInfo> node = ClassInfo::Lookup(&record);
  EXPECT_EQ(typeOf("o<Reflection.Test.Node>"), node);
  EXPECT_EQ(node->GetProperties()->elements.at(0)->PropertyType(), node);
  EXPECT_EQ(node->GetMethods()->elements.size(), 1U);
  int other = 0;
  EXPECT_EQ(raisedBy([&] { ClassInfo::Lookup(reinterpret_cast<ClassRecord*>(&other)); }),
            "TypeMismatchException");
}

TEST_F(TypeInformationTest, ADescriptionOutlivesTheFinalizers) {
  const Ref<TypeInfo> kept = typeOf("A1o<Reflection.Test.Node>");
  const Ref<TypeInfo> node = kept->GetElementType();
  const Ref<MethodInfo> step = node->GetMethods()->elements[0];
  EXPECT_EQ(step->ReturnType(), node);
  EXPECT_EQ(step->GetParameters()->elements[0]->ParameterType(), node);
  finalizeReflection();
  EXPECT_EQ(nameOf(kept), "Reflection.Test.Node()");
  EXPECT_NE(typeOf("A1o<Reflection.Test.Node>"), kept);
}

}  // namespace
}  // namespace veldrin::test
