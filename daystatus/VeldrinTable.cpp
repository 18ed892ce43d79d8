#include <cstddef>
#include <utility>

#include "daystatus/ControlHandler.h"
#include "daystatus/FormParts.h"
#include "daystatus/Veldrin.h"

namespace veldrin {
namespace {

template <class T>
Ref<T> controlOf(Object* window, const String& name) {
  return RuntimeWindowControlByName<T>(static_cast<Window&>(*window), name);
}

/// Adds a method for each control: it has the control's name and returns the control.
template <std::size_t... Row>
void addControls(ClassTable<Veldrin>& table, std::index_sequence<Row...> /*rows*/) {
  (table.plainMethod<controlOf<ControlClass<FormTable[Row].kind>>>(FormNames[Row]), ...);
}

template <std::size_t Place>
void addHandler(ClassTable<Veldrin>& table) {
  constexpr const Wiring& Row = Wirings[Place];
  constexpr auto Method = FormTable[Row.row].extras.handlers[Row.handler].method;
  table.method<controlHandler<Method>>(Row.name);
}

template <std::size_t... Place>
void addHandlers(ClassTable<Veldrin>& table, std::index_sequence<Place...> /*places*/) {
  (addHandler<Place>(table), ...);
}

}  // namespace

void Veldrin::fillTable(ClassTable<Veldrin>& table) {
  table.attributes(Public.attributes);

  table.handles<&Veldrin::Layout>(Events::Layout);
  table.handles<&Veldrin::CreateControls>(Events::CreateControls);
  table.handles<&Veldrin::Event_Open>(Events::Open);

  table.property<&Veldrin::Rads>("Rads"_s);
  table.property<&Veldrin::Degs>("Degs"_s);
  table.property<&Veldrin::mjd0>("mjd0"_s);
  table.property<&Veldrin::TwoPi>("TwoPi"_s);
  table.property<&Veldrin::Pi>("Pi"_s);
  table.property<&Veldrin::statusDate>("statusDate"_s);

  table.method<&Veldrin::Layout>("Layout"_s);
  table.method<&Veldrin::CreateControls>("CreateControls"_s);
  table.method<&Veldrin::_CreateControls0>("_CreateControls0"_s, PublicHidden);

  addControls(table, std::make_index_sequence<FormTable.size()>());
  addHandlers(table, std::make_index_sequence<Wirings.size()>());

  table.method<&Veldrin::EditMenu>("EditMenu"_s);
  table.method<&Veldrin::EditSelectAll>("EditSelectAll"_s);
  table.method<&Veldrin::UntitledMenu0>("UntitledMenu0"_s);
  table.method<&Veldrin::EditClear>("EditClear"_s);
  table.method<&Veldrin::EditPaste>("EditPaste"_s);
  table.method<&Veldrin::EditCopy>("EditCopy"_s);
  table.method<&Veldrin::EditCut>("EditCut"_s);
  table.method<&Veldrin::UntitledMenu1>("UntitledMenu1"_s);
  table.method<&Veldrin::EditUndo>("EditUndo"_s);
  table.method<&Veldrin::FileMenu>("FileMenu"_s);
  table.method<&Veldrin::FileQuit>("FileQuit"_s);

  table.method<&Veldrin::Event_Open>("Event_Open"_s);
  table.method<&Veldrin::DoVeldrin>("DoVeldrin"_s);
  table.method<&Veldrin::QuadParabola>("QuadParabola"_s);
  table.method<&Veldrin::ModifiedJulianDate>("ModifiedJulianDate"_s);
  table.method<&Veldrin::iPart>("iPart"_s);
  table.method<&Veldrin::SineAltitude>("SineAltitude"_s);
  table.method<&Veldrin::LocalSiderialTime>("LocalSiderialTime"_s);
  table.method<&Veldrin::fPart>("fPart"_s);
  table.method<&Veldrin::TheSun>("TheSun"_s);
  table.method<&Veldrin::HHMMFormat>("HHMMFormat"_s);
  table.method<&Veldrin::SetDaylightSavingsBounds>("SetDaylightSavingsBounds"_s);
  table.method<&Veldrin::DoDaylightSavings>("DoDaylightSavings"_s);
  table.method<&Veldrin::UpdateStatus>("UpdateStatus"_s);
  table.method<&Veldrin::HHMMZZ>("HHMMZZ"_s);
  table.method<&Veldrin::IsDaylightSavingsTime>("IsDaylightSavingsTime"_s);
  table.method<&Veldrin::ShortDate>("ShortDate"_s);
}

}  // namespace veldrin
