#include "shell/window/RectControl.h"

namespace veldrin {

void RectControl::fillTable(ClassTable<RectControl>& table) {
  table.event(Events::LostFocus);
  table.method<&RectControl::Constructor>("Constructor"_s);
  table.property<&RectControl::Left>("Left"_s);
  table.property<&RectControl::Top>("Top"_s);
  table.property<&RectControl::Width>("Width"_s);
  table.property<&RectControl::Height>("Height"_s);
  table.property<&RectControl::LockLeft>("LockLeft"_s);
  table.property<&RectControl::LockTop>("LockTop"_s);
  table.property<&RectControl::LockRight>("LockRight"_s);
  table.property<&RectControl::LockBottom>("LockBottom"_s);
  table.property<&RectControl::TabPanelIndex>("TabPanelIndex"_s);
  table.property<&RectControl::TabIndex>("TabIndex"_s);
  table.property<&RectControl::TabStop>("TabStop"_s);
  table.property<&RectControl::InitialParent>("InitialParent"_s);
  table.property<&RectControl::Visible>("Visible"_s);
  table.property<&RectControl::HelpTag>("HelpTag"_s);
  table.property<&RectControl::AutoDeactivate>("AutoDeactivate"_s);
  table.property<&RectControl::Enabled>("Enabled"_s);
}

}  // namespace veldrin
