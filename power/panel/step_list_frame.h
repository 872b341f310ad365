// The frame around the step list.
#pragma once

#include <QCoreApplication>
#include <QFrame>
#include <QScrollBar>
#include <QWheelEvent>

namespace zps {

// While a row is being edited, Tab goes round among what can be used in the list, as the pointer
// does. The wheel turns the list's scroll bar anywhere over the rows, and nothing while the bar is
// disabled.
class StepListFrame : public QFrame {
  public:
    void KeepFocus(bool on) { Kept = on; }
    // `bar` is a child of the frame.
    void SetBar(QScrollBar& bar) { Bar = &bar; }

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

    void wheelEvent(QWheelEvent* event) override {
        if (Bar != nullptr && Bar->isEnabled()) QCoreApplication::sendEvent(Bar, event);
        event->accept();
    }

  private:
    bool TakesFocus(const QWidget& control) const {
        return isAncestorOf(&control) && control.isEnabled() &&
               (control.focusPolicy() & Qt::TabFocus) != 0;
    }

    bool Kept = false;
    QScrollBar* Bar = nullptr;
};

}  // namespace zps
