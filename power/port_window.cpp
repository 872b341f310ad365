#include "power/port_window.h"

#include "controls/error_texts.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QKeyEvent>

namespace zps {

PortWindow::PortWindow(SOURCE& source, POWER& power, const Surroundings& around)
    : QWidget(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint),
      Source(source),
      Power(power),
      Events(around.Boxes, this),
      comPOWER(around.Ports.MakePort()) {}

std::optional<serial::PortError> PortWindow::OpenPort(std::int16_t number) {
    try {
        comPOWER->SetPortOpen(false);
        comPOWER->SetCommPort(number);
        comPOWER->SetPortOpen(true);
        Source.PortOpenedOn(comPOWER->Device());
        Power.ConnectionChanged();
    } catch (const serial::PortError& error) {
        Power.Happened().Note(EventKind::Port, MessageOf(error).Text);
        return error;
    }
    return std::nullopt;
}

void PortWindow::ReportLater(const serial::PortError& error) {
    QMetaObject::invokeMethod(
        this, [this, error] { Events.Run([&error] { throw error; }); }, Qt::QueuedConnection);
}

void PortWindow::Form_Unload() {
    EndExchange();
    comPOWER->SetPortOpen(false);
    Source.MenuDialogFlag = false;
    Source.WasHandled();
    Source.Settle();
    hide();
    const auto error = Power.TakeBack();
    PortReturned(!error);
    // Before the box below, which may be up for long: this window is to be gone by then.
    Q_EMIT Closed();
    if (error) Power.ReportPort(*error);
}

void PortWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!isVisible()) return;
    Events.Run([this] { Form_Unload(); });
}

void PortWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

namespace {

// A dialog that can be closed without a key.
class SpokenWindow : public QAccessibleWidget {
  public:
    explicit SpokenWindow(PortWindow& window) : QAccessibleWidget(&window, QAccessible::Dialog) {}

    QStringList actionNames() const override { return {Closing()}; }
    QString localizedActionName(const QString& name) const override { return name; }
    void doAction(const QString& name) override {
        if (name == Closing()) widget()->close();
    }

  private:
    static QString Closing() { return QStringLiteral("닫기"); }
};

// Null for what the toolkit or another factory knows.
QAccessibleInterface* MakeSpokenWindow(const QString& /*className*/, QObject* object) {
    auto* window = dynamic_cast<PortWindow*>(object);
    return window == nullptr ? nullptr : new SpokenWindow(*window);
}

}  // namespace

void SpeakPortWindows() {
    QAccessible::installFactory(&MakeSpokenWindow);
}

}  // namespace zps
