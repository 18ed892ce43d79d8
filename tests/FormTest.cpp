#include <gmock/gmock.h>

#include <deque>
#include <set>
#include <string>
#include <vector>

#include "shell/FocusOrder.h"
#include "tests/support/BoundEvent.h"
#include "tests/support/FormLiterals.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

Variant valueOf(const Ref<Object>& object, std::string_view key) {
  const PropertyRow* const row = FindProperty(*object->classRecord(), key);
  if (row == nullptr) return {};
  return RuntimeGenericGetter(row->reflectionGet, row->getter, object.get(), row->fieldOffset);
}

Ref<Control> control(const Window& view, std::string_view name) {
  return RuntimeWindowControlByName<Control>(view, String(name));
}

using FormTest = WindowTest;

TEST_F(FormTest, WindowAndControlsStandAsTheFormHasThem) {
  for (const FormEntry& entry : entriesOf(WindowLiteral)) {
    EXPECT_EQ(valueOf(window(), entry.key), entry.value) << entry.key;
  }
  const std::set<std::string_view> writtenByTheOpening{"Status", "DSTEnd", "DSTStart", "TimeZone"};
  ASSERT_EQ(window()->controls().size(), std::size(FormLiterals));
  for (std::size_t place = 0; place < std::size(FormLiterals); ++place) {
    const FormLiteral& row = FormLiterals[place];
    SCOPED_TRACE(row.name);
    const Ref<Control> made = window()->controls()[place];
    EXPECT_EQ(control(*window(), row.name), made);
    EXPECT_EQ(text(made->classRecord()->name), row.kind);
    EXPECT_EQ(made->Window(), window());
    for (const FormEntry& entry : entriesOf(row)) {
      if (entry.key == "Text" && writtenByTheOpening.contains(row.name)) continue;
      EXPECT_EQ(valueOf(made, entry.key), entry.value) << entry.key;
    }
    if (row.kind == "Placard") continue;
    EXPECT_EQ(valueOf(made, "TextSize"), Variant(row.name == "StaticText7" ? 9.0F : 0.0F));
    EXPECT_EQ(valueOf(made, "TextUnit"), Variant(FontUnits::Default));
  }
  EXPECT_EQ(window()->WhichYear()->ListCount(), 13);
}

TEST_F(FormTest, ExactlyTenEventsOfTheControlsAreWired) {
  static bool unwired = false;
  const Ref<Veldrin> view = window();
  std::deque<BoundEvent> bound;
  for (ClassRecord* const record :
       {Placard::__Lookup(), StaticText::__Lookup(), PushButton::__Lookup(), PopupMenu::__Lookup(),
        TextField::__Lookup(), CheckBox::__Lookup()}) {
    for (const EventRow& event : record->eventRows) {
      EXPECT_EQ(event.handler, nullptr);
      bound.emplace_back(record, event.name, [](Object*) { unwired = true; });
    }
  }
  std::string wired;
  for (const Ref<Control>& each : view->controls()) {
    for (const EventRow& event : each->classRecord()->eventRows) {
      unwired = false;
      each->raiseEvent(event.name);
      if (!unwired) wired += text(each->Name) + "_" + text(event.name) + " ";
    }
  }
  EXPECT_EQ(wired,
            "BackOneDay_Action ForwardOneDay_Action GenerateButton_Action WhichYear_Open "
            "WhichYear_Change DownUnderFlag_Action DaylightSavings_Action Latitude_LostFocus "
            "TimeZone_LostFocus Longitude_LostFocus ");
}

TEST_F(FormTest, FocusGoesThroughThePanelsAndNotDownTheScreen) {
  const Ref<Veldrin> view = window();
  const auto order = [&] {
    std::string names;
    for (const auto& each : focusOrder(*view)) names += text(each->Name) + " ";
    return names;
  };
  EXPECT_EQ(order(),
            "Latitude TimeZone Longitude DSTEnd DSTStart DownUnderFlag DaylightSavings BackOneDay "
            "ForwardOneDay GenerateButton WhichYear ");
  view->Latitude()->Enabled = false;
  view->TimeZone()->Visible = false;
  view->Longitude()->TabStop = false;
  view->WhichYear()->TabIndex = -1;
  view->DSTStart()->TabIndex = view->DSTEnd()->TabIndex;  // equal ones go by their making
  EXPECT_EQ(order(),
            "DSTEnd DSTStart DownUnderFlag DaylightSavings WhichYear BackOneDay ForwardOneDay "
            "GenerateButton ");
  // Panels inside each other, or a control inside itself, are inside no window.
  view->Placard1()->InitialParent = "Placard2"_s;
  view->Placard2()->InitialParent = "Placard1"_s;
  view->BackOneDay()->InitialParent = "BackOneDay"_s;
  EXPECT_EQ(order(), "WhichYear ForwardOneDay GenerateButton ");
  view->Close();
  EXPECT_EQ(order(), "");
}

TEST_F(FormTest, ControlsAreReachedByNameUntilTheyAreTakenAway) {
  const Ref<Veldrin> view = window();
  const Ref<TextField> field = view->Latitude();
  EXPECT_FALSE(control(*view, "latitude"));
  EXPECT_EQ(raisedBy([&] { RuntimeWindowControlByName<CheckBox>(*view, "Latitude"_s); }),
            "IllegalCastException");
  EXPECT_EQ(raisedBy([&] { view->_AddControl("Day"_s, New<Date>()); }), "IllegalCastException");
  view->_AddControl("Second"_s, field);  // one control under two names
  EXPECT_EQ(control(*view, "Second"), field);
  view->_RemoveControl(nullptr);
  EXPECT_EQ(view->controls().size(), 22U);
  view->_RemoveControl(field);
  EXPECT_FALSE(control(*view, "Latitude") || control(*view, "Second"));
  EXPECT_EQ(view->controls().size(), 20U);
  EXPECT_EQ(field->referenceCount(), 1);
  view->Close();
  EXPECT_FALSE(field->Window());
}

}  // namespace
}  // namespace veldrin::test
