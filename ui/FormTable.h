#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "shell/objects/String.h"

namespace veldrin {

/// The kinds of control that the form has.
enum class ControlKind : std::uint8_t {
  Placard,
  StaticText,
  PushButton,
  PopupMenu,
  TextField,
  CheckBox
};

/// How a `StaticText` stands in its rectangle.
enum class TextAlignment : std::uint8_t { Left, Centre, Right };

/// What only some controls of the form have.
struct ControlExtras {
  TextAlignment alignment = TextAlignment::Left;  ///< of a `StaticText`
  bool multiLine = false;                         ///< of a `StaticText`
  bool ticked = false;                            ///< of a `CheckBox`
  bool locked = false;    ///< held at left, top and right, if the window could be resized
  float textSize = 0.0F;  ///< points; 0 for the font's own size
};

/// One control of the form: a row of the table below. Places and sizes are pixels of the window's
/// content, also for a control inside a panel.
struct ControlRow {
  ControlKind kind;
  std::string_view name;
  std::string_view parent;  ///< the panel's name, empty for the window
  std::int32_t left;
  std::int32_t top;
  std::int32_t width;
  std::int32_t height;
  std::int32_t tabIndex;  ///< place in the focus order, within the parent
  std::string_view text;  ///< `Text`, `Caption` or `InitialValue`, as the kind has it
  ControlExtras extras = {};
};

/// The content of the window, in pixels.
inline constexpr std::int32_t FormWidth = 350;
inline constexpr std::int32_t FormHeight = 420;

namespace detail {
using enum ControlKind;
using enum TextAlignment;

/// Every row of the chooser, each ended by a carriage return.
inline constexpr std::string_view Years =
    "2008\r2009\r2010\r2011\r2012\r2013\r2014\r2015\r2016\r2017\r2018\r2019\r2020\r";

// clang-format off
inline constexpr auto Rows = std::to_array<ControlRow>({
  // kind       name               parent      left  top width height tab  text
  {Placard,    "Placard3",        "",           21, 256, 309, 140, 20, ""},
  {StaticText, "Status",          "Placard3",   75, 325, 206,  61,  0, "", {.alignment = Centre, .multiLine = true}},
  {PushButton, "BackOneDay",      "Placard3",   28, 345,  27,  20,  1, "-"},
  {PushButton, "ForwardOneDay",   "Placard3",  297, 345,  27,  20,  2, "+"},
  {PushButton, "GenerateButton",  "Placard3",   94, 265, 181,  20,  3, "Generate iCal For"},
  {PopupMenu,  "WhichYear",       "Placard3",   97, 293, 178,  20,  4, Years},
  {Placard,    "Placard2",        "",           21, 133, 309, 110, 19, ""},
  {TextField,  "DSTEnd",          "Placard2",  174, 215, 101,  22,  0, ""},
  {StaticText, "StaticText6",     "Placard2",   56, 217, 100,  20,  1, "End Date", {.alignment = Right}},
  {TextField,  "DSTStart",        "Placard2",  174, 187, 101,  22,  2, "1/3/2000"},
  {StaticText, "StaticText5",     "Placard2",   56, 188, 100,  20,  3, "Start Date", {.alignment = Right}},
  {CheckBox,   "DownUnderFlag",   "Placard2",   97, 162, 178,  20,  4, "Down Under"},
  {CheckBox,   "DaylightSavings", "Placard2",   97, 139, 178,  20,  5, "Daylight Savings Time",
                                                                        {.ticked = true}},
  {Placard,    "Placard1",        "",           21,  19, 309, 100, 18, "", {.locked = true}},
  {StaticText, "StaticText1",     "Placard1",   56,  28, 100,  20,  0, "Latitude", {.alignment = Right}},
  {TextField,  "Latitude",        "Placard1",  174,  26, 101,  22,  1, "47.5"},
  {TextField,  "TimeZone",        "Placard1",  174,  89, 101,  22,  2, "0"},
  {TextField,  "Longitude",       "Placard1",  174,  54, 101,  22,  3, "-122.5"},
  {StaticText, "StaticText2",     "Placard1",   56,  61, 100,  20,  4, "Longitude", {.alignment = Right}},
  {StaticText, "StaticText4",     "Placard1",   29,  90, 127,  20,  5, "Standard Time Zone", {.alignment = Right}},
  {StaticText, "StaticText7",     "",            5, 400,  24,  20, 14, "v6", {.textSize = 9.0F}},
});
// clang-format on
}  // namespace detail

/// The controls of the form, in the order in which they are made; a later one lies above an
/// earlier.
inline constexpr const auto& FormTable = detail::Rows;

namespace detail {
template <std::size_t Row>
constexpr auto fixedName() {
  FixedString<Rows[Row].name.size()> name;
  std::ranges::copy(Rows[Row].name, name.characters.begin());
  return name;
}

template <std::size_t... Row>
constexpr auto nameConstants(std::index_sequence<Row...> /*rows*/) {
  return std::array{ConstantText<fixedName<Row>()>...};
}
}  // namespace detail

/// The names of the controls as constants: the very records that the logic reaches them by.
inline constexpr auto FormNames =
    detail::nameConstants(std::make_index_sequence<FormTable.size()>());

}  // namespace veldrin
