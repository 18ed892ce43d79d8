#include <deque>
#include <set>
#include <string>
#include <vector>

#include "daystatus/FormParts.h"
#include "shell/window/FocusOrder.h"
#include "tests/support/Form.h"
#include "tests/support/RuntimeTest.h"
#include "ui/FormStreams.h"
#include "ui/PropertyStream.h"

namespace veldrin::test {
namespace {

Ref<Control> control(const Window& view, std::string_view name) {
  return RuntimeWindowControlByName<Control>(view, String(name));
}

using FormTest = WindowTest;

TEST_F(FormTest, WindowAndControlsHaveThePropertiesOfTheirStreams) {
  const std::set<std::string_view> writtenByTheOpening{"Status", "DSTEnd", "DSTStart", "TimeZone"};
  const std::vector<FormStream> streams = readForm();
  ASSERT_EQ(window()->controls().size() + 1, streams.size());
  for (std::size_t index = 0; index < streams.size(); ++index) {
    const auto& [kind, name, sizeAndChecksum, bytes] = streams[index];
    SCOPED_TRACE(name);
    Ref<Object> object = window();
    if (kind != "Window") {
      object = window()->controls()[index];
      EXPECT_EQ(control(*window(), name), object);
      EXPECT_EQ(window()->controls()[index]->Window(), window());
      EXPECT_EQ(text(object->classRecord()->name), kind);
    }
    for (const auto& [property, value] :
         readPropertyStream(*object->classRecord(), FormStreams[index].view()).entries) {
      const std::string_view key = property->name.view();
      if (key == "Text" && writtenByTheOpening.contains(name)) continue;
      EXPECT_EQ(valueOf(object, key), value) << key;
    }
    if (kind == "Placard" || kind == "Window") continue;
    EXPECT_EQ(valueOf(object, "TextSize"), Variant(name == "StaticText7" ? 9.0F : 0.0F));
    EXPECT_EQ(valueOf(object, "TextUnit"), Variant(FontUnits::Default));
  }
  EXPECT_EQ(window()->WhichYear()->ListCount(), 13);
}

TEST_F(FormTest, ControlsHaveTheTextStyleOfTheForm) {
  std::string alignments;
  for (const Ref<Control>& each : window()->controls()) {
    SCOPED_TRACE(text(each->Name));
    if (const auto* const style = dynamic_cast<const TextStyle*>(each.get())) {
      EXPECT_FALSE(style->Bold() || style->Italic() || style->Underline());
      EXPECT_EQ(text(style->TextFont()), "System");
    }
    if (const auto* const field = dynamic_cast<const TextField*>(each.get())) {
      EXPECT_TRUE(field->TextColor() == Black && field->BackColor() == White);
      EXPECT_EQ(field->Alignment(), 0);
    } else if (const auto* const label = dynamic_cast<const StaticText*>(each.get())) {
      EXPECT_EQ(label->TextColor(), Black);
      EXPECT_EQ(label->MultiLine(), text(label->Name) == "Status");
      alignments += text(label->Name) + " " + std::to_string(label->TextAlign()) + " ";
    }
  }
  EXPECT_EQ(alignments,
            "Status 1 StaticText6 2 StaticText5 2 StaticText1 2 StaticText2 2 StaticText4 2 "
            "StaticText7 0 ");
}

TEST_F(FormTest, ExactlyTenControlEventsHaveHandlers) {
  static bool unwired = false;
  const Ref<Veldrin> view = window();
  std::deque<BoundEvent> bound;
  for (ClassRecord* const record : controlClasses()) {
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
  constexpr Event<void()> WithoutParameter{"KeyDown"_s};  // the window's event has a parameter
  EXPECT_EQ(raisedBy([&] { callHandler(*view, WithoutParameter); }), "TypeMismatchException");
  EXPECT_EQ(raisedBy([&] { view->Latitude()->raiseEvent("KeyDown"_s); }), "KeyNotFoundException");
}

TEST_F(FormTest, FocusOrderFollowsPanelsAndTabIndexes) {
  const Ref<Veldrin> view = window();
  const auto order = [&] {
    std::string names;
    for (const auto& each : focusOrder(*view)) names += text(each->Name) + " ";
    return names;
  };
  EXPECT_EQ(order(),
            "Latitude TimeZone Longitude DSTEnd DSTStart DownUnderFlag DaylightSavings BackOneDay "
            "ForwardOneDay GenerateButton WhichYear ");
  view->Latitude()->Enabled(false);
  view->TimeZone()->Visible(false);
  view->Longitude()->TabStop(false);
  view->WhichYear()->TabIndex(-1);
  view->DSTStart()->TabIndex(view->DSTEnd()->TabIndex());  // equal indexes keep the creation order
  EXPECT_EQ(order(),
            "DSTEnd DSTStart DownUnderFlag DaylightSavings WhichYear BackOneDay ForwardOneDay "
            "GenerateButton ");
  // The order omits controls in or below a parent cycle.
  control<"Placard1">(*view)->InitialParent("Placard2"_s);
  control<"Placard2">(*view)->InitialParent("Placard1"_s);
  view->BackOneDay()->InitialParent("BackOneDay"_s);
  EXPECT_EQ(order(), "WhichYear ForwardOneDay GenerateButton ");
  view->Close();
  EXPECT_EQ(order(), "");
}

TEST_F(FormTest, ControlsAreFoundByNameUntilTheyAreRemoved) {
  const Ref<Veldrin> view = window();
  const Ref<TextField> field = view->Latitude();
  EXPECT_FALSE(control(*view, "latitude"));
  EXPECT_EQ(raisedBy([&] { RuntimeWindowControlByName<CheckBox>(*view, "Latitude"_s); }),
            "IllegalCastException");
  EXPECT_EQ(raisedBy([&] { view->_AddControl("Day"_s, New<Date>()); }), "IllegalCastException");
  view->_AddControl("Second"_s, field);  // one control under two names
  EXPECT_EQ(control(*view, "Second"), field);
  view->_RemoveControl(nullptr);
  EXPECT_EQ(view->controls().size(), FormTable.size() + 1);
  view->_RemoveControl(field);
  EXPECT_FALSE(control(*view, "Latitude") || control(*view, "Second"));
  EXPECT_EQ(view->controls().size(), FormTable.size() - 1);
  EXPECT_EQ(field->referenceCount(), 1);
  // A name finds the newest control. Without that, it finds the older one.
  const Ref<Control> old = control(*view, "TimeZone");
  view->_AddControl(String(std::string("TimeZone")), field);
  EXPECT_EQ(control(*view, "TimeZone"), field);
  EXPECT_EQ(view->controls().size(), FormTable.size());
  view->_RemoveControl(view->controls().back());
  EXPECT_FALSE(field->Window());
  EXPECT_EQ(control(*view, "TimeZone"), old);
  // A control is in one window only.
  const Ref<Window> other = New<Window>();
  other->_AddControl("There"_s, old);
  view->_RemoveControl(old);  // has no effect: it is in the other window
  EXPECT_EQ(old->Window(), other);
  EXPECT_FALSE(control(*view, "TimeZone"));
  // A closed window is not redrawn.
  other->_AddDirtyWindow();
  view->_AddDirtyWindow();
  static int closed;
  closed = 0;
  const BoundEvent bound(TextField::__Lookup(), "Close"_s, [](Object*) { ++closed; });
  other->Close();
  EXPECT_EQ(closed, 1);
  other->_AddDirtyWindow();
  EXPECT_EQ(_WindowSupport.mDirtyWindows->Count(), 1);
  EXPECT_EQ(other->referenceCount(), 1);
  view->Close();
  EXPECT_EQ(closed, 4);
  EXPECT_FALSE(field->Window());
}

}  // namespace
}  // namespace veldrin::test
