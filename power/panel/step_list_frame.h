// The frame around the step list.
#pragma once

#include <QCoreApplication>
#include <QFrame>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <functional>

namespace zps {

// While a row is being edited, Tab goes round among what can be used in the list, as the pointer
// does. The wheel turns the list's scroll bar anywhere over the rows, and nothing while the bar is
// disabled.
class StepListFrame : public QFrame {
  public:
    void KeepFocus(bool on) { Kept = on; }
    // `bar` is a child of the frame.
    void SetBar(QScrollBar& bar) { Bar = &bar; }

    // Something in the list that can't be used has been clicked.
    std::function<void(const QWidget& control)> OnBarredPress = [](const QWidget&) {};
    // The list as a whole can be used from now on, or can't.
    std::function<void()> OnEnabled = [] {};

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

    void mousePressEvent(QMouseEvent* event) override {
        const QWidget* control = childAt(event->pos());
        if (control != nullptr && !control->isEnabled()) OnBarredPress(*control);
        event->accept();
    }

    void changeEvent(QEvent* event) override {
        QFrame::changeEvent(event);
        if (event->type() == QEvent::EnabledChange) OnEnabled();
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
