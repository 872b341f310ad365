#include "tour/guide.h"

#include <QLineEdit>
#include <QPushButton>

#include <chrono>
#include <iostream>

namespace zps::tour {

using namespace std::chrono_literals;

Guide::Guide(Program& program, const QString& pictures) : Panel(program), Pictures(pictures) {
    Pictures.mkpath(QStringLiteral("."));
    BoxWatch.setInterval(50ms);
    QObject::connect(&BoxWatch, &QTimer::timeout, &BoxWatch, [this] { LookForBox(); });
}

void Guide::Expect(const QString& what, const std::function<bool()>& seen) {
    const bool good = QTest::qWaitFor(seen, 10000);
    if (!good) ++Missed;
    std::cout << (good ? "seen    " : "MISSED  ") << what.toStdString() << std::endl;
}

void Guide::Picture(QWidget& window, const QString& name) {
    const QString file = Pictures.filePath(name + QStringLiteral(".png"));
    if (!window.grab().save(file)) {
        ++Missed;
        std::cout << "MISSED  picture " << file.toStdString() << std::endl;
    }
}

void Guide::Click(const char* button) {
    QTest::mouseClick(&Get<QPushButton>(button), Qt::LeftButton);
}

void Guide::Enter(const char* field, const QString& text) {
    auto& box = Get<QLineEdit>(field);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Tab);
}

void Guide::AnswerBox(const QString& name, Qt::Key key) {
    BoxName = name;
    BoxKey = key;
    LastBoxText.clear();
    BoxWatch.start();
}

void Guide::LookForBox() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    BoxWatch.stop();
    LastBoxText = box->text();
    Picture(*box, BoxName);
    QTest::keyClick(box, BoxKey);
}

}  // namespace zps::tour
