#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "shell/TextOutputStream.h"
#include "tests/support/FormLiterals.h"
#include "tests/support/RuntimeTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {
namespace {

using testing::ElementsAre;

/// The names of rows or attributes, each with the value that it may have, parted by blanks.
std::string namesOf(const auto& rows) {
  std::string all;
  for (const auto& row : rows) {
    all.append(all.empty() ? "" : " ").append(row.name.view());
    if constexpr (requires { row.hasValue; }) {
      if (row.hasValue) all.append("=").append(row.value.view());
    }
  }
  return all;
}

class ClassTableTest : public RuntimeTest {
 protected:
  static void SetUpTestSuite() { initializeClasses(); }

  static Function function(const ClassRecord* record, std::string_view name) {
    const auto named = [&](const MethodRow& row) { return row.name == name; };
    const auto row = std::ranges::find_if(record->methodRows, named);
    return row == record->methodRows.end() ? nullptr : row->function;
  }
};

TEST_F(ClassTableTest, EventsOfWindowAndApplicationStandInOrder) {
  EXPECT_EQ(namesOf(Window::__Lookup()->eventRows),
            "Layout CreateControls AddMenuHandlers SetupBindings Open Close CancelClose KeyDown "
            "KeyUp MouseMove MouseEnter MouseExit Paint MouseDown MouseDrag MouseUp "
            "EnableMenuItems Resized Resizing Moved DropObject Activate Deactivate Minimize "
            "Maximize Restore MouseWheel ConstructContextualMenu ContextualMenuAction DragEnter "
            "DragExit DragOver");
  EXPECT_EQ(namesOf(Application::__Lookup()->eventRows),
            "Open Close EnableMenuItems NewDocument OpenDocument HandleAppleEvent Activate "
            "Deactivate UnhandledException CancelClose");
  const auto& quit = QuitMenuItem::__Lookup()->eventRows;
  EXPECT_EQ(namesOf(quit), "Action Action");  // handled, and offered on
  EXPECT_EQ(quit[0].handler, function(QuitMenuItem::__Lookup(), "Event_Action"));
  EXPECT_EQ(quit[1].handler, nullptr);
}

TEST_F(ClassTableTest, VeldrinHas61MethodsOfItsOwn) {
  constexpr auto ASCII = 0x600U;
  constexpr auto UTF8 = 0x08000100U;
  struct Group {
    std::string_view names;
    std::string signature;
    std::uint32_t encoding = UTF8;
  };
  std::vector<Group> groups{{"Layout CreateControls _CreateControls0", "%%"}};
  for (const FormLiteral& each : FormLiterals) {
    groups.push_back({each.name, "%o<" + std::string(each.kind) + ">%s"});
  }
  const Group others[] = {
      {"BackOneDay_Action ForwardOneDay_Action GenerateButton_Action WhichYear_Open "
       "WhichYear_Change DownUnderFlag_Action DaylightSavings_Action Latitude_LostFocus "
       "TimeZone_LostFocus Longitude_LostFocus",
       "%%"},
      {"EditMenu EditSelectAll UntitledMenu0 EditClear EditPaste EditCopy EditCut UntitledMenu1 "
       "EditUndo FileMenu",
       "%o<MenuItem>%"},
      {"FileQuit", "%o<QuitMenuItem>%"},
      {"Event_Open", "%%"},
      {"DoVeldrin", "%%f8f8o<Date>f8&f8&f8"},
      {"QuadParabola", "%%f8f8f8&f8&f8&f8&f8&i4", ASCII},
      {"ModifiedJulianDate", "%f8%i4i4i4f8", ASCII},
      {"iPart", "%f8%f8", ASCII},
      {"SineAltitude", "%f8%f8f8f8f8", ASCII},
      {"LocalSiderialTime", "%f8%f8f8", ASCII},
      {"fPart", "%f8%f8", ASCII},
      {"TheSun", "%%f8&f8&f8", ASCII},
      {"HHMMFormat", "%s%f8"},
      {"SetDaylightSavingsBounds", "%%i4", ASCII},
      {"DoDaylightSavings", "%%o<Date>&f8"},
      {"UpdateStatus", "%%"},
      {"HHMMZZ", "%s%f8"},
      {"IsDaylightSavingsTime", "%b%o<Date>"},
      {"ShortDate", "%s%o<Date>"},
  };
  groups.insert(groups.end(), std::begin(others), std::end(others));
  const ClassRecord* const record = Veldrin::__Lookup();
  std::vector<Function> slots = Window::__Lookup()->virtualTable;
  ASSERT_EQ(record->ownMethods().size(), 61U);
  auto row = record->ownMethods().begin();
  for (const Group& group : groups) {
    for (const std::string_view name : words(group.names)) {
      SCOPED_TRACE(name);
      ASSERT_NE(row, record->ownMethods().end());
      EXPECT_EQ(text(row->name), name);
      EXPECT_EQ(row->flags, 1U);
      EXPECT_EQ(namesOf(row->attributes),
                name == "_CreateControls0" ? "__Scope=Public Hidden" : "__Scope=Public");
      EXPECT_EQ(text(row->signature), group.signature);
      EXPECT_EQ(row->signature.encoding(), group.encoding);
      // The methods of the controls' names are the framework's: they have no slot.
      if (!group.signature.ends_with(">%s")) slots.push_back(row->function);
      ++row;
    }
  }
  EXPECT_EQ(row, record->ownMethods().end());
  EXPECT_EQ(record->virtualTable, slots);
}

TEST_F(ClassTableTest, VeldrinHasSixPropertiesThreeHandlersAndOneAttribute) {
  const ClassRecord* const record = Veldrin::__Lookup();
  EXPECT_EQ(record->baseClass, Window::__Lookup());
  EXPECT_EQ(namesOf(record->attributeRows), "__Scope=Public");
  EXPECT_TRUE(record->__Init == nullptr && record->Destructor == nullptr &&
              record->__Exit != nullptr);
  EXPECT_EQ(namesOf(record->ownProperties()), "Rads Degs mjd0 TwoPi Pi statusDate");
  for (const PropertyRow& row : record->ownProperties()) {
    const bool real = row.name.view() != "statusDate";
    EXPECT_EQ(row.flags, 5U);
    EXPECT_EQ(namesOf(row.attributes), "__Scope=Public");
    EXPECT_EQ(text(row.type), real ? "f8" : "o<Date>");
    // Stored ones share the accessors of their type.
    EXPECT_EQ(row.getter, real ? reinterpret_cast<Function>(PropertyAccess<double>::Get)
                               : reinterpret_cast<Function>(PropertyAccess<Ref<Date>>::Get));
  }
  for (const EventRow& row : record->eventRows) {
    const std::string name = text(row.name);
    const bool bound = name == "Layout" || name == "CreateControls" || name == "Open";
    EXPECT_EQ(row.handler, bound ? function(record, name == "Open" ? "Event_Open" : name) : nullptr)
        << name;
  }
}

TEST_F(ClassTableTest, MenuBar1OverridesItsConstructorAndAppHasNothing) {
  const ClassRecord* const bar = MenuBar1::__Lookup();
  const ClassRecord* const base = MenuBar::__Lookup();
  EXPECT_TRUE(bar->baseClass == base && base->baseClass == MenuItem::__Lookup());
  EXPECT_TRUE(bar->__Init == nullptr && bar->__Exit == nullptr);
  const auto own = bar->ownMethods();
  ASSERT_EQ(namesOf(own), "Untitled0 Untitled1 Constructor");
  for (const MethodRow& row : own) EXPECT_EQ(row.flags, 1U) << text(row.name);
  std::vector<Function> expected = base->virtualTable;
  *std::ranges::find(expected, function(base, "Constructor")) = own[2].function;
  expected.insert(expected.end(), {own[0].function, own[1].function});
  EXPECT_EQ(bar->virtualTable, expected);

  const ClassRecord* const app = App::__Lookup();
  EXPECT_EQ(app->baseClass, Application::__Lookup());
  EXPECT_EQ(app->virtualTable, Application::__Lookup()->virtualTable);
  EXPECT_TRUE(app->ownMethods().empty() && app->ownProperties().empty() &&
              app->attributeRows.empty());
  for (const EventRow& row : app->eventRows) EXPECT_EQ(row.handler, nullptr) << text(row.name);
}

TEST_F(ClassTableTest, InterfaceRowHasTheOperationsInOrder) {
  const ClassRecord* const stream = TextOutputStream::__Lookup();
  ASSERT_EQ(stream->interfaceRows.size(), 1U);
  EXPECT_EQ(stream->interfaceRows[0].interface, Writeable::__Lookup());
  EXPECT_THAT(stream->interfaceRows[0].operations,
              ElementsAre(function(stream, "Write"), function(stream, "Flush"),
                          function(stream, "WriteError")));
}

TEST_F(ClassTableTest, MethodsOfASpecialFormHaveTheirFlags) {
  const struct {
    const ClassRecord* record;
    std::string_view name, signature;
    std::uint32_t flags;
    std::string_view attributes;
  } rows[] = {
      {Dictionary::__Lookup(), "Constructor", "%%A1o<Pair>", 9, "__Scope=Public"},
      {Dictionary::__Lookup(), "Value", "%%vv", 5, "__Scope=Public"},
      {Dictionary::__Lookup(), "Value", "%v%v", 1, "__Scope=Public"},
      {TextOutputStream::__Lookup(), "Create", "%o<TextOutputStream>%o<FolderItem>", 3,
       "__Scope=Public __Shared"},
      {TextOutputStream::__Lookup(), "CheckForError", "%%", 0, "__Scope=Private"},
      {RuntimeException::__Lookup(), "Stack", "%A1s%", 1, "__Scope=Public"},
      {Date::__Lookup(), "Year.Get", "%i4%i4", 1, "__Scope=Public Hidden"},
      {Date::__Lookup(), "Year.Set", "%%i4i4", 1, "__Scope=Public Hidden"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto found = std::ranges::find_if(row.record->methodRows, [&](const MethodRow& each) {
      return each.name == row.name && each.signature == row.signature;
    });
    ASSERT_NE(found, row.record->methodRows.end());
    EXPECT_EQ(found->flags, row.flags);
    EXPECT_EQ(namesOf(found->attributes), row.attributes);
  }
}

}  // namespace
}  // namespace veldrin::test
