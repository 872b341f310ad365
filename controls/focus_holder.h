// Where the focus waits while no control should have it.
#pragma once

#include <QPushButton>

namespace zps {

// A button of one pixel that does nothing. It stands in a plain widget beside other controls; to
// screen readers it is not there.
class FocusHolder : public QPushButton {
  public:
    explicit FocusHolder(const QString& name) {
        setObjectName(name);
        setFocusPolicy(Qt::ClickFocus);
        setFlat(true);
        setFixedSize(1, 1);
    }
};

}  // namespace zps
