#pragma once

#include <QFrame>

#include "shell/Placard.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A framed panel, which stands behind the controls that it groups.
class QtPanel final : public QFrame, public QtControl {
 public:
  QtPanel(const Ref<Placard>& panel, Delivery& /*delivery*/, QWidget& parent) : QFrame(&parent) {
    setFrameStyle(QFrame::StyledPanel | (panel->Value ? QFrame::Sunken : QFrame::Raised));
  }

  QWidget& widget() override { return *this; }
};

}  // namespace veldrin
