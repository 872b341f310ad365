#include "set_manual/deliberate_choice.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace zps {

namespace {

bool IsCommand(const QKeyEvent& key) {
    return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

// How far along the row of ports an arrow key goes; 0 for any other key.
int StepOf(int key) {
    if (key == Qt::Key_Up || key == Qt::Key_Left) return -1;
    return key == Qt::Key_Down || key == Qt::Key_Right ? 1 : 0;
}

bool WouldChoose(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return !key.text().isEmpty() && key.text().front().isPrint();
    }
}

}  // namespace

DeliberateChoice::DeliberateChoice(const SetManualControls& controls) : Controls(controls) {
    for (QComboBox* list : {Controls.cmbADDR, Controls.cmbMODEL}) list->installEventFilter(this);
    for (QRadioButton* port : Controls.Ports) port->installEventFilter(this);
}

bool DeliberateChoice::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) return qobject_cast<QComboBox*>(watched) != nullptr;
    if (event->type() != QEvent::KeyPress) return false;
    auto& key = *static_cast<QKeyEvent*>(event);
    if (IsCommand(key)) return false;
    return watched == Controls.cmbADDR ? OpensAddresses(key) : MovesAmongPorts(*watched, key);
}

bool DeliberateChoice::OpensAddresses(QKeyEvent& key) const {
    if (!WouldChoose(key)) return false;
    Controls.cmbADDR->showPopup();
    if (key.key() != Qt::Key_Space) QCoreApplication::sendEvent(Controls.cmbADDR->view(), &key);
    return true;
}

bool DeliberateChoice::MovesAmongPorts(const QObject& from, const QKeyEvent& key) const {
    const auto port = std::find(Controls.Ports.begin(), Controls.Ports.end(), &from);
    const int step = StepOf(key.key());
    if (port == Controls.Ports.end() || step == 0) return false;
    const auto target = port - Controls.Ports.begin() + step;
    if (target < 0 || target >= PortCount) return true;
    Controls.Ports.at(static_cast<std::size_t>(target))
        ->setFocus(step < 0 ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    return true;
}

}  // namespace zps
