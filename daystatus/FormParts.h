#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <tuple>
#include <utility>

#include "daystatus/FormTable.h"

namespace veldrin {

// Compile-time lists derived from the form's table: the names, the classes and the handlers.

/// The class of a kind of control.
template <ControlKind Kind>
using ControlClass = std::tuple_element_t<
    static_cast<std::size_t>(Kind),
    std::tuple<Placard, StaticText, PushButton, PopupMenu, TextField, CheckBox>>;

/// A handler of the form: its control, its event and the name of its method.
struct Wiring {
  std::size_t row;      ///< the control's row in the table
  std::size_t handler;  ///< index among the control's handlers
  StringConstant event;
  StringConstant name;
};

namespace detail {

template <std::size_t Row>
constexpr auto fixedName() {
  FixedString<Rows[Row].name.size()> name;
  std::ranges::copy(Rows[Row].name, name.characters.begin());
  return name;
}

template <std::size_t Row, std::size_t Handler>
constexpr auto fixedEvent() {
  constexpr std::string_view Event = Rows[Row].extras.handlers[Handler].event;
  FixedString<Event.size()> name;
  std::ranges::copy(Event, name.characters.begin());
  return name;
}

template <std::size_t... Row>
constexpr auto nameConstants(std::index_sequence<Row...> /*rows*/) {
  return std::array{ConstantText<fixedName<Row>()>...};
}

/// The place of a handler in the table.
struct HandlerPlace {
  std::size_t row;
  std::size_t handler;
};

constexpr std::size_t handlerCount() {
  std::size_t count = 0;
  for (const ControlRow& row : Rows) {
    for (const HandlerRow& handler : row.extras.handlers) {
      if (!handler.event.empty()) ++count;
    }
  }
  return count;
}

constexpr auto handlerPlaces() {
  std::array<HandlerPlace, handlerCount()> places{};
  std::size_t place = 0;
  for (std::size_t row = 0; row < Rows.size(); ++row) {
    for (std::size_t handler = 0; handler < Rows[row].extras.handlers.size(); ++handler) {
      if (!Rows[row].extras.handlers[handler].event.empty()) places[place++] = {row, handler};
    }
  }
  return places;
}

template <std::size_t Place>
constexpr Wiring wiringAt() {
  constexpr HandlerPlace At = handlerPlaces()[Place];
  constexpr auto Event = fixedEvent<At.row, At.handler>();
  return {At.row, At.handler, ConstantText<Event>,
          ConstantText<fixedName<At.row>() + FixedString("_") + Event>};
}

template <std::size_t... Place>
constexpr auto wirings(std::index_sequence<Place...> /*places*/) {
  return std::array{wiringAt<Place>()...};
}

}  // namespace detail

/// The names of the controls as constants, in the order of the table.
inline constexpr auto FormNames =
    detail::nameConstants(std::make_index_sequence<FormTable.size()>());

/// The handlers of the form, in the order of the table.
inline constexpr auto Wirings = detail::wirings(std::make_index_sequence<detail::handlerCount()>());

/// The index of the row of the control `Name`. An unknown name does not compile.
template <FixedString Name>
consteval std::size_t formRow() {
  const auto* const row = std::ranges::find(FormTable, Name.view(), &ControlRow::name);
  if (row == FormTable.end()) throw "the form has no control of that name";
  return static_cast<std::size_t>(row - FormTable.begin());
}

/// The control `Name` of the window, or nil. The form's table determines its class:
/// `control<"Placard1">(window)` is a `Ref<Placard>`.
template <FixedString Name>
auto control(const Window& window) {
  constexpr std::size_t Row = formRow<Name>();
  return RuntimeWindowControlByName<ControlClass<FormTable[Row].kind>>(window, FormNames[Row]);
}

}  // namespace veldrin
