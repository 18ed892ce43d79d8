#include "daystatus/ControlHandler.h"
#include "daystatus/Veldrin.h"

namespace veldrin {
namespace {

/// A control is a method of the window that takes the control's own name.
template <class T>
Ref<T> controlOf(Object* window, const String& name) {
  return RuntimeWindowControlByName<T>(static_cast<Window&>(*window), name);
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

  table.plainMethod<controlOf<Placard>>("Placard3"_s);
  table.plainMethod<controlOf<StaticText>>("Status"_s);
  table.plainMethod<controlOf<PushButton>>("BackOneDay"_s);
  table.plainMethod<controlOf<PushButton>>("ForwardOneDay"_s);
  table.plainMethod<controlOf<PushButton>>("GenerateButton"_s);
  table.plainMethod<controlOf<PopupMenu>>("WhichYear"_s);
  table.plainMethod<controlOf<Placard>>("Placard2"_s);
  table.plainMethod<controlOf<TextField>>("DSTEnd"_s);
  table.plainMethod<controlOf<StaticText>>("StaticText6"_s);
  table.plainMethod<controlOf<TextField>>("DSTStart"_s);
  table.plainMethod<controlOf<StaticText>>("StaticText5"_s);
  table.plainMethod<controlOf<CheckBox>>("DownUnderFlag"_s);
  table.plainMethod<controlOf<CheckBox>>("DaylightSavings"_s);
  table.plainMethod<controlOf<Placard>>("Placard1"_s);
  table.plainMethod<controlOf<StaticText>>("StaticText1"_s);
  table.plainMethod<controlOf<TextField>>("Latitude"_s);
  table.plainMethod<controlOf<TextField>>("TimeZone"_s);
  table.plainMethod<controlOf<TextField>>("Longitude"_s);
  table.plainMethod<controlOf<StaticText>>("StaticText2"_s);
  table.plainMethod<controlOf<StaticText>>("StaticText4"_s);
  table.plainMethod<controlOf<StaticText>>("StaticText7"_s);

  table.method<controlHandler<&Veldrin::BackOneDay_Action>>("BackOneDay_Action"_s);
  table.method<controlHandler<&Veldrin::ForwardOneDay_Action>>("ForwardOneDay_Action"_s);
  table.method<controlHandler<&Veldrin::GenerateButton_Action>>("GenerateButton_Action"_s);
  table.method<controlHandler<&Veldrin::WhichYear_Open>>("WhichYear_Open"_s);
  table.method<controlHandler<&Veldrin::WhichYear_Change>>("WhichYear_Change"_s);
  table.method<controlHandler<&Veldrin::DownUnderFlag_Action>>("DownUnderFlag_Action"_s);
  table.method<controlHandler<&Veldrin::DaylightSavings_Action>>("DaylightSavings_Action"_s);
  table.method<controlHandler<&Veldrin::Latitude_LostFocus>>("Latitude_LostFocus"_s);
  table.method<controlHandler<&Veldrin::TimeZone_LostFocus>>("TimeZone_LostFocus"_s);
  table.method<controlHandler<&Veldrin::Longitude_LostFocus>>("Longitude_LostFocus"_s);

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
