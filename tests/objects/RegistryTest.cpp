#include <set>
#include <string>
#include <vector>

#include "reflection/ClassInfo.h"
#include "reflection/Introspection.h"
#include "shell/objects/TypeCodeGrammar.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

/// Checks all classes: of Veldrin, of the reflection module, and of other tests in this process.
class RegistryTest : public RuntimeTest {
 protected:
  static void SetUpTestSuite() { initializeClasses(); }
  // Releases the descriptions that the checks have created.
  void TearDown() override { Introspection::finalizeReflection(); }

  /// Calls the check with every record, oldest first.
  template <class Check>
  static void forEach(const Check& check) {
    std::vector<ClassRecord*> records;
    for (ClassRecord* each = RuntimeGetClassList(); each != nullptr; each = each->nextClass) {
      records.push_back(each);
    }
    ASSERT_GT(records.size(), 60U);
    std::ranges::reverse(records);
    for (ClassRecord* record : records) {
      SCOPED_TRACE(text(record->name));
      check(*record);
    }
  }

  /// Whether the rows begin with the names of the inherited rows.
  template <class Rows>
  static bool startWith(const Rows& rows, const Rows& inherited) {
    return rows.size() >= inherited.size() &&
           std::equal(inherited.begin(), inherited.end(), rows.begin(),
                      [](const auto& one, const auto& other) { return one.name == other.name; });
  }
};

TEST_F(RegistryTest, EveryClassIsBuiltOnceAndExtendsItsBase) {
  initializeClasses();  // a second call builds nothing
  std::set<const ClassRecord*> built{nullptr};
  std::set<std::string> names;
  forEach([&](ClassRecord& record) {
    EXPECT_TRUE(names.insert(text(record.name)).second);
    EXPECT_TRUE(built.contains(record.baseClass));
    built.insert(&record);
    EXPECT_EQ(record.isInterface, record.instanceSize == 0);
    if (record.isInterface) {
      EXPECT_TRUE(record.baseClass == nullptr && record.virtualTable.empty() &&
                  record.methodRows.empty() && record.eventRows.empty() &&
                  record.propertyRows.empty());
    }
    const Ref<Introspection::TypeInfo> described =
        Introspection::ClassInfo::Lookup(&record)->BaseType();
    EXPECT_EQ(described ? text(described->QualifiedName()) : "",
              record.baseClass ? text(record.baseClass->name) : "");
    if (record.baseClass == nullptr) return;
    const ClassRecord& base = *record.baseClass;
    EXPECT_GE(record.instanceSize, base.instanceSize);
    EXPECT_TRUE(startWith(record.methodRows, base.methodRows));
    EXPECT_TRUE(startWith(record.propertyRows, base.propertyRows));
    EXPECT_TRUE(startWith(record.eventRows, base.eventRows));
  });
}

TEST_F(RegistryTest, ASlotDiffersFromTheBaseOnlyWhereARowOverridesIt) {
  const auto rowOf = [](std::span<const MethodRow> rows, std::size_t slot) -> const MethodRow* {
    const auto row = std::ranges::find(rows, static_cast<std::int32_t>(slot), &MethodRow::slot);
    return row == rows.end() ? nullptr : &*row;
  };
  forEach([&](const ClassRecord& record) {
    EXPECT_EQ(std::ranges::count(record.virtualTable, nullptr), 0);
    if (record.baseClass == nullptr) return;
    const ClassRecord& base = *record.baseClass;
    ASSERT_GE(record.virtualTable.size(), base.virtualTable.size());
    for (std::size_t slot = 0; slot < base.virtualTable.size(); ++slot) {
      if (record.virtualTable[slot] == base.virtualTable[slot]) continue;
      const MethodRow* const own = rowOf(record.ownMethods(), slot);
      const MethodRow* const overridden = rowOf(base.methodRows, slot);
      ASSERT_TRUE(own != nullptr && overridden != nullptr) << slot;
      EXPECT_EQ(own->function, record.virtualTable[slot]);
      EXPECT_EQ(text(own->name) + text(own->signature),
                text(overridden->name) + text(overridden->signature));
    }
  });
}

TEST_F(RegistryTest, NamesAndFieldsAreUnique) {
  forEach([](const ClassRecord& record) {
    std::set<std::string> methods;
    for (const MethodRow& row : record.ownMethods()) {
      EXPECT_TRUE(methods.insert(text(row.name) + text(row.signature)).second) << text(row.name);
    }
    // Inherited properties count too: a property stream sets only one of two with the same name.
    // Private names may repeat.
    std::set<std::pair<std::int32_t, Function>> fields;
    for (const PropertyRow& row : record.propertyRows) {
      if ((row.flags & Flags::Public) == 0) continue;
      SCOPED_TRACE(text(row.name));
      const Function getter = row.fieldOffset == 0 ? row.getter : nullptr;
      EXPECT_TRUE(fields.emplace(row.fieldOffset, getter).second);
      EXPECT_EQ(FindProperty(record, row.name.view()), &row);
    }
    const bool hasRedeclaredAction =
        record.name == "QuitMenuItem" ||
        (record.baseClass != nullptr && record.baseClass->name == "QuitMenuItem");
    for (const EventRow& row : record.eventRows) {
      EXPECT_EQ(std::ranges::count(record.eventRows, row.name, &EventRow::name),
                hasRedeclaredAction ? 2 : 1)
          << text(row.name);
    }
  });
}

/// Checks that the scope is the first attribute, and that the flags agree with the attributes.
template <class Row>
void expectAttributesAgree(const Row& row) {
  ASSERT_FALSE(row.attributes.empty());
  EXPECT_EQ(row.attributes[0].name.view(), "__Scope");
  EXPECT_EQ((row.flags & Flags::Public) != 0, row.attributes[0].value.view() == "Public");
  EXPECT_EQ((row.flags & Flags::Shared) != 0, row.attributes.back().name.view() == "__Shared");
}

/// Checks that the code has a type. If the code has a name in brackets, the type has this name.
void expectType(std::string_view code) {
  Ref<Introspection::TypeInfo> type = Introspection::GetInfoFromTypeCode(String(code));
  ASSERT_TRUE(type) << code;
  while (type->IsArray()) type = type->GetElementType();
  const std::size_t bracket = code.find('<');
  if (bracket == std::string_view::npos) return;
  EXPECT_EQ(text(type->QualifiedName()) + ">", code.substr(bracket + 1));
}

TEST_F(RegistryTest, EveryRowIsComplete) {
  forEach([&](const ClassRecord& record) {
    for (const MethodRow& row : record.ownMethods()) {
      SCOPED_TRACE(text(row.name) + " " + text(row.signature));
      EXPECT_TRUE(row.function != nullptr && row.invoker != nullptr);
      expectAttributesAgree(row);
      const auto parts = splitSignature(row.signature.view());
      ASSERT_TRUE(parts);
      if (!parts->result.empty()) expectType(parts->result);
      for (std::string_view list = parts->parameters; !list.empty();) {
        std::string_view code = takeParameter(list);
        if (code.starts_with('&')) code.remove_prefix(1);
        expectType(code);
      }
    }
    for (const PropertyRow& row : record.ownProperties()) {
      SCOPED_TRACE(text(row.name));
      expectAttributesAgree(row);
      expectType(row.type.view());
      EXPECT_TRUE(row.getter != nullptr && row.reflectionGet != nullptr);
      EXPECT_EQ(row.setter != nullptr, (row.flags & Flags::Writable) != 0);
      EXPECT_EQ(row.setter != nullptr, row.reflectionSet != nullptr);
      EXPECT_TRUE(row.fieldOffset >= 0 && row.fieldOffset < record.instanceSize);
      // The accessors of a computed property are methods, too.
      for (const auto& [ending, function] : {std::pair(".Get", row.getter), {".Set", row.setter}}) {
        const auto method = std::ranges::find(record.methodRows, row.name + String(ending),
                                              [](const MethodRow& each) { return each.name; });
        if (method != record.methodRows.end()) {
          EXPECT_EQ(method->function, function);
        }
        const bool needsNoMethod =
            row.fieldOffset != 0 || (row.flags & Flags::Shared) != 0 || function == nullptr;
        EXPECT_TRUE(needsNoMethod || method != record.methodRows.end());
      }
    }
    for (const EventRow& row : record.eventRows) {
      EXPECT_TRUE(row.handler == nullptr ||
                  std::ranges::count(record.methodRows, row.handler, &MethodRow::function) == 1)
          << text(row.name);
    }
    for (const InterfaceRow& row : record.interfaceRows) {
      EXPECT_TRUE(row.interface != nullptr && row.interface->isInterface);
      EXPECT_EQ(std::ranges::count(row.operations, nullptr), 0);
    }
  });
}

TEST_F(RegistryTest, EveryPropertyOfANewObjectAcceptsItsOwnValue) {
  std::int32_t written = 0;
  forEach([&](ClassRecord& record) {
    if (record.allocate == nullptr) return;
    const Ref<Object> object = RuntimeNewObject(&record);
    EXPECT_EQ(object->classRecord(), &record);
    for (const PropertyRow& row : record.propertyRows) {
      SCOPED_TRACE(text(row.name) + " " + text(row.type));
      const auto read = [&] {
        return RuntimeGenericGetter(row.reflectionGet, row.getter, object.get(), row.fieldOffset);
      };
      const Variant value = read();
      if (row.setter == nullptr) continue;
      RuntimeGenericSetter(row.reflectionSet, row.setter, object.get(), row.fieldOffset, value);
      EXPECT_EQ(read(), value);
      ++written;
    }
    _WindowSupport.Windows.clear();
  });
  EXPECT_GT(written, 200);
}

}  // namespace
}  // namespace veldrin::test
