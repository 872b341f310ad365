#include "power/steps/send_box.h"

#include "power/steps/table_messages.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace zps {

void SendBox::Show(const SendAll::Report& report) {
    if (report.Cancelled) return;  // it is closed, and setting its value would open it again
    if (!Box) Open(report.Of);
    Box->setLabelText(ProgressText(report));
    Box->setValue(report.Sent);
}

// Not modal: a modal one would run events inside of setValue.
void SendBox::Open(int steps) {
    constexpr int width = 320;  // px
    Box = new QProgressDialog(QString(), QStringLiteral("취소"), 0, steps, &Window);
    Box->setObjectName(QStringLiteral("SEND_ALL"));
    Box->setWindowTitle(QStringLiteral("단계 송신"));
    Box->setAutoReset(false);
    Box->setAutoClose(false);
    Box->setMinimumDuration(0);
    Box->setMinimumWidth(width);
    Box->findChild<QProgressBar*>()->setAccessibleName(QStringLiteral("송신한 단계"));
    // With a name of its own it is not told anew for each step.
    Box->findChild<QLabel*>()->setAccessibleName(QStringLiteral("송신 진행"));
    QObject::connect(Box, &QProgressDialog::canceled, Box, [this] { Cancel(); });
    // Whoever goes on typing must not end it by Enter: the button is reached by Tab.
    Box->findChild<QPushButton*>()->setAutoDefault(false);
    Box->setFocusPolicy(Qt::StrongFocus);
    Box->setFocus();
    Box->show();
}

void SendBox::Close() {
    if (!Box) return;
    Box->close();
    Box->deleteLater();
    Box = nullptr;
}

}  // namespace zps
