#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "shell/objects/Color.h"
#include "shell/objects/Variant.h"

namespace veldrin::test {

// The form, written down a second time: what the window and its controls hold before anything of
// the opening has written to them, in the order of their streams. It shares nothing with the form's
// own table.

/// A property as the form spells it, and its value.
struct FormEntry {
  std::string_view key;
  Variant value;
};

/// A control of the form, in the order of making.
struct FormLiteral {
  std::string_view kind, name, parent;
  std::int32_t left, top, width, height, tabIndex;
  std::string_view text;
};

inline constexpr FormLiteral FormLiterals[] = {
    {"Placard", "Placard3", "", 21, 256, 309, 140, 20, ""},
    {"StaticText", "Status", "Placard3", 75, 325, 206, 61, 0, ""},
    {"PushButton", "BackOneDay", "Placard3", 28, 345, 27, 20, 1, "-"},
    {"PushButton", "ForwardOneDay", "Placard3", 297, 345, 27, 20, 2, "+"},
    {"PushButton", "GenerateButton", "Placard3", 94, 265, 181, 20, 3, "Generate iCal For"},
    {"PopupMenu", "WhichYear", "Placard3", 97, 293, 178, 20, 4,
     "2008\r2009\r2010\r2011\r2012\r2013\r2014\r2015\r2016\r2017\r2018\r2019\r2020\r"},
    {"Placard", "Placard2", "", 21, 133, 309, 110, 19, ""},
    {"TextField", "DSTEnd", "Placard2", 174, 215, 101, 22, 0, ""},
    {"StaticText", "StaticText6", "Placard2", 56, 217, 100, 20, 1, "End Date"},
    {"TextField", "DSTStart", "Placard2", 174, 187, 101, 22, 2, "1/3/2000"},
    {"StaticText", "StaticText5", "Placard2", 56, 188, 100, 20, 3, "Start Date"},
    {"CheckBox", "DownUnderFlag", "Placard2", 97, 162, 178, 20, 4, "Down Under"},
    {"CheckBox", "DaylightSavings", "Placard2", 97, 139, 178, 20, 5, "Daylight Savings Time"},
    {"Placard", "Placard1", "", 21, 19, 309, 100, 18, ""},
    {"StaticText", "StaticText1", "Placard1", 56, 28, 100, 20, 0, "Latitude"},
    {"TextField", "Latitude", "Placard1", 174, 26, 101, 22, 1, "47.5"},
    {"TextField", "TimeZone", "Placard1", 174, 89, 101, 22, 2, "0"},
    {"TextField", "Longitude", "Placard1", 174, 54, 101, 22, 3, "-122.5"},
    {"StaticText", "StaticText2", "Placard1", 56, 61, 100, 20, 4, "Longitude"},
    {"StaticText", "StaticText4", "Placard1", 29, 90, 127, 20, 5, "Standard Time Zone"},
    {"StaticText", "StaticText7", "", 5, 400, 24, 20, 14, "v6"},
};

/// The window, which has no place and no parent.
inline constexpr FormLiteral WindowLiteral{"Window", "Veldrin", "", 0, 0, 350, 420, 0, "Veldrin"};

/// The words of a text that blanks part.
inline std::vector<std::string_view> words(std::string_view list) {
  std::vector<std::string_view> all;
  while (!list.empty()) {
    all.push_back(list.substr(0, list.find(' ')));
    list.remove_prefix(std::min(list.size(), all.back().size() + 1));
  }
  return all;
}

/// The keys of a stream in order: those that all controls begin with, and those of each kind.
inline constexpr std::string_view FirstKeys =
    "Name Index Left Top Width Height LockLeft LockTop LockRight LockBottom TabPanelIndex TabIndex";
inline constexpr struct {
  std::string_view kind, keys;
} KeysOfKinds[] = {
    {"Placard", "TabStop InitialParent Visible HelpTag AutoDeactivate Enabled Value"},
    {"StaticText",
     "Text TextAlign TextColor Multiline Enabled Visible HelpTag AutoDeactivate TextFont Bold "
     "Italic Underline DataSource DataField InitialParent"},
    {"PushButton",
     "TabStop Caption Default Cancel Enabled Visible HelpTag AutoDeactivate TextFont Bold Italic "
     "Underline InitialParent"},
    {"PopupMenu",
     "TabStop Enabled InitialValue ListIndex Visible HelpTag AutoDeactivate TextFont Bold Italic "
     "Underline DataSource DataField InitialParent"},
    {"TextField",
     "TabStop Border Password UseFocusRing TextColor BackColor Enabled Format Visible HelpTag "
     "AutoDeactivate TextFont Bold Italic Underline CueText Text Mask ReadOnly LimitText "
     "AcceptTabs Alignment DataSource DataField InitialParent"},
    {"CheckBox",
     "TabStop Caption Enabled Visible HelpTag AutoDeactivate TextFont Bold Italic Underline State "
     "Value DataSource DataField InitialParent"},
    {"Window",
     "Placement Width Height MinWidth MinHeight MaxWidth MaxHeight Frame Composite HasBackColor "
     "BackColor Title Visible FullScreen MenuBarVisible CloseButton Resizeable LiveResize "
     "MaximizeButton MinimizeButton MacProcID"},
};

/// All settings of a control or of the window in the order of its stream.
inline std::vector<FormEntry> entriesOf(const FormLiteral& literal) {
  // The first row that fits counts; one with no name is for all.
  const struct {
    std::string_view name, keys;
    Variant value;
  } settings[] = {
      {"", "Name", String(literal.name)},
      {"", "InitialParent", String(literal.parent)},
      {"", "Left", literal.left},
      {"", "Top", literal.top},
      {"", "Width", literal.width},
      {"", "Height", literal.height},
      {"", "TabIndex", literal.tabIndex},
      {"", "Text Caption InitialValue Title", String(literal.text)},
      {"Placard1", "LockLeft LockTop LockRight", true},
      {"Status", "Multiline", true},
      {"Status", "TextAlign", 1},
      {"StaticText7", "TextAlign", 0},
      {"", "TextAlign", 2},
      {"DaylightSavings", "State", 1},
      {"DaylightSavings", "Value", true},
      {"", "Index", -2147483647 - 1},
      {"", "TextColor", Color{0, 0, 0}},
      {"", "BackColor", Color{255, 255, 255}},
      {"", "TextFont", String("System")},
      {"", "HelpTag DataSource DataField Format CueText Mask", String()},
      {"", "TabStop Visible AutoDeactivate Enabled Border UseFocusRing", true},
      {"", "MenuBarVisible CloseButton MinimizeButton", true},
      {"", "LockLeft LockTop LockRight LockBottom Value Multiline Bold Italic Underline", false},
      {"", "Default Cancel Password ReadOnly AcceptTabs", false},
      {"", "Composite HasBackColor FullScreen Resizeable LiveResize MaximizeButton", false},
      {"", "TabPanelIndex ListIndex LimitText Alignment State Placement Frame MacProcID", 0},
      {"", "MinWidth MinHeight", 64},
      {"", "MaxWidth MaxHeight", 32000},
  };
  const auto* const kind =
      std::ranges::find_if(KeysOfKinds, [&](const auto& row) { return row.kind == literal.kind; });
  std::vector<std::string_view> keys = words(kind->keys);
  if (kind->kind != "Window") {
    const std::vector<std::string_view> first = words(FirstKeys);
    keys.insert(keys.begin(), first.begin(), first.end());
  }
  std::vector<FormEntry> entries;
  for (const std::string_view key : keys) {
    const auto fits = [&](const auto& row) {
      return (row.name.empty() || row.name == literal.name) &&
             std::ranges::count(words(row.keys), key) != 0;
    };
    entries.push_back({key, std::ranges::find_if(settings, fits)->value});
  }
  return entries;
}

}  // namespace veldrin::test
