// The frame around the step list.
#pragma once

#include <QFrame>

namespace zps {

// While a row is being edited, Tab goes round among what can be used in the list, as the pointer
// does.
class StepListFrame : public QFrame {
  public:
    void KeepFocus(bool on) { Kept = on; }

  protected:
    bool focusNextPrevChild(bool next) override {
        QWidget* from = window()->focusWidget();
        if (!Kept || from == nullptr) return QFrame::focusNextPrevChild(next);
        const auto step = [next](const QWidget* one) {
            return next ? one->nextInFocusChain() : one->previousInFocusChain();
        };
        QWidget* to = step(from);
        while (to != from && !TakesFocus(*to)) to = step(to);
        to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }

  private:
    bool TakesFocus(const QWidget& control) const {
        return isAncestorOf(&control) && control.isEnabled() &&
               (control.focusPolicy() & Qt::TabFocus) != 0;
    }

    bool Kept = false;
};

}  // namespace zps
