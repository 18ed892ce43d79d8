#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "daystatus/Veldrin.h"

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

/// How the text of a `StaticText` is aligned in its rectangle.
enum class TextAlignment : std::uint8_t { Left, Centre, Right };

/// An event of a control and the method of the window that handles it. The method is named after
/// the control and the event, as in `WhichYear_Change`.
struct HandlerRow {
  std::string_view event;
  void (Veldrin::*method)() = nullptr;
};

/// The optional properties of a control.
struct ControlExtras {
  std::array<HandlerRow, 2> handlers = {};  ///< connected in this order; unused rows are empty
  std::string_view spokenName = {};         ///< for screen readers, if the text says too little
  TextAlignment alignment = TextAlignment::Left;  ///< of a `StaticText`
  bool multiLine = false;                         ///< of a `StaticText`
  bool ticked = false;                            ///< of a `CheckBox`
  bool locked = false;                            ///< sets `LockLeft`, `LockTop` and `LockRight`
  float textSize = 0.0F;                          ///< points; 0 for the default size
};

/// One control of the form: a row of the table below. Positions are relative to the window's
/// content, even inside a panel; positions and sizes are in pixels. `docs/adding.md` says how to
/// add a control.
struct ControlRow {
  ControlKind kind;
  std::string_view name;
  std::string_view parent;  ///< the panel's name, empty for the window
  std::int32_t left;
  std::int32_t top;
  std::int32_t width;
  std::int32_t height;
  std::int32_t tabIndex;  ///< place in the focus order, within the parent
  std::string_view text;  ///< `Text`, `Caption` or `InitialValue`, depending on `kind`
  ControlExtras extras = {};
};

/// The size of the window's content, in pixels.
inline constexpr std::int32_t FormWidth = 350;
inline constexpr std::int32_t FormHeight = 420;

namespace detail {
using enum ControlKind;
using enum TextAlignment;

/// The rows of `WhichYear`, each ended by a carriage return.
inline constexpr std::string_view Years =
    "2008\r2009\r2010\r2011\r2012\r2013\r2014\r2015\r2016\r2017\r2018\r2019\r2020\r";

// clang-format off
inline constexpr auto Rows = std::to_array<ControlRow>({
  // kind       name               parent      left  top width height tab  text
  {Placard,    "Placard3",        "",           21, 256, 309, 140, 20, ""},
  {StaticText, "Status",          "Placard3",   75, 325, 206,  61,  0, "", {.alignment = Centre, .multiLine = true}},
  {PushButton, "BackOneDay",      "Placard3",   28, 345,  27,  20,  1, "-",
                                   {.handlers = {{{"Action", &Veldrin::BackOneDay_Action}}}, .spokenName = "Previous day"}},
  {PushButton, "ForwardOneDay",   "Placard3",  297, 345,  27,  20,  2, "+",
                                   {.handlers = {{{"Action", &Veldrin::ForwardOneDay_Action}}}, .spokenName = "Next day"}},
  {PushButton, "GenerateButton",  "Placard3",   94, 265, 181,  20,  3, "Generate iCal For",
                                   {.handlers = {{{"Action", &Veldrin::GenerateButton_Action}}}}},
  {PopupMenu,  "WhichYear",       "Placard3",   97, 293, 178,  20,  4, Years,
                                   {.handlers = {{{"Open", &Veldrin::WhichYear_Open}, {"Change", &Veldrin::WhichYear_Change}}},
                                    .spokenName = "Year"}},
  {Placard,    "Placard2",        "",           21, 133, 309, 110, 19, ""},
  {TextField,  "DSTEnd",          "Placard2",  174, 215, 101,  22,  0, ""},
  {StaticText, "StaticText6",     "Placard2",   56, 217, 100,  20,  1, "End Date", {.alignment = Right}},
  {TextField,  "DSTStart",        "Placard2",  174, 187, 101,  22,  2, "1/3/2000"},
  {StaticText, "StaticText5",     "Placard2",   56, 188, 100,  20,  3, "Start Date", {.alignment = Right}},
  {CheckBox,   "DownUnderFlag",   "Placard2",   97, 162, 178,  20,  4, "Down Under",
                                   {.handlers = {{{"Action", &Veldrin::DownUnderFlag_Action}}}}},
  {CheckBox,   "DaylightSavings", "Placard2",   97, 139, 178,  20,  5, "Daylight Savings Time",
                                   {.handlers = {{{"Action", &Veldrin::DaylightSavings_Action}}}, .ticked = true}},
  {Placard,    "Placard1",        "",           21,  19, 309, 100, 18, "", {.locked = true}},
  {StaticText, "StaticText1",     "Placard1",   56,  28, 100,  20,  0, "Latitude", {.alignment = Right}},
  {TextField,  "Latitude",        "Placard1",  174,  26, 101,  22,  1, "47.5",
                                   {.handlers = {{{"LostFocus", &Veldrin::Latitude_LostFocus}}}}},
  {TextField,  "TimeZone",        "Placard1",  174,  89, 101,  22,  2, "0",
                                   {.handlers = {{{"LostFocus", &Veldrin::TimeZone_LostFocus}}}}},
  {TextField,  "Longitude",       "Placard1",  174,  54, 101,  22,  3, "-122.5",
                                   {.handlers = {{{"LostFocus", &Veldrin::Longitude_LostFocus}}}}},
  {StaticText, "StaticText2",     "Placard1",   56,  61, 100,  20,  4, "Longitude", {.alignment = Right}},
  {StaticText, "StaticText4",     "Placard1",   29,  90, 127,  20,  5, "Standard Time Zone", {.alignment = Right}},
  {StaticText, "StaticText7",     "",            5, 400,  24,  20, 14, "v6", {.textSize = 9.0F}},
});
// clang-format on
}  // namespace detail

/// The controls of the form in the order of creation. Later controls are drawn above earlier ones.
inline constexpr const auto& FormTable = detail::Rows;

}  // namespace veldrin
