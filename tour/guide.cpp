#include "tour/guide.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

#include <chrono>
#include <iostream>
#include <utility>

namespace zps::tour {

using namespace std::chrono_literals;

Guide::Guide(Program& program, Look look) : Panel(program), Seen(std::move(look)) {
    BoxWatch.setInterval(50ms);
    QObject::connect(&BoxWatch, &QTimer::timeout, &BoxWatch, [this] { LookForBox(); });
    BoxWatch.start();
}

void Guide::Expect(const QString& what, const std::function<bool()>& seen) {
    Tell(QTest::qWaitFor(seen, 10000), what);
}

void Guide::Bring(const QString& what, const std::function<void()>& act,
                  const std::function<bool()>& seen) {
    bool good = false;
    for (int tries = 0; tries < 3 && !good; ++tries) {
        act();
        good = QTest::qWaitFor(seen, 4000);
    }
    Tell(good, what);
}

void Guide::Tell(bool good, const QString& what) {
    if (!good) ++Missed;
    std::cout << (good ? "seen    " : "MISSED  ") << what.toStdString() << std::endl;
}

void Guide::LookAt(QWidget& window, const QString& state) {
    QApplication::processEvents();  // what has been seen is perhaps not laid out yet
    if (Seen(window, state)) return;
    ++Missed;
    std::cout << "MISSED  a good look at " << state.toStdString() << std::endl;
}

void Guide::Click(const char* button) {
    QTest::mouseClick(&Get<QPushButton>(button), Qt::LeftButton);
}

void Guide::Type(const char* field, const QString& text) {
    auto& box = Get<QLineEdit>(field);
    box.activateWindow();  // an off-screen display does not after a message box
    if (!QTest::qWaitForWindowActive(&Panel.Main())) ++Missed;
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box, text);
}

void Guide::Enter(const char* field, const QString& text) {
    Type(field, text);
    QTest::keyClick(&Get<QLineEdit>(field), Qt::Key_Return);
}

void Guide::AnswerBox(const QString& state, Qt::Key key) {
    BoxState = state;
    BoxKey = key;
    LastBoxText.clear();
}

void Guide::LookForBox() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || box == LastBox) return;
    LastBox = box;
    LastBoxText = box->text();
    if (BoxState.isEmpty()) {
        ++Missed;
        std::cout << "MISSED  nobody expects the box: " << LastBoxText.toStdString() << std::endl;
        box->reject();
        return;
    }
    LookAt(*box, std::exchange(BoxState, {}));
    QTest::keyClick(box, BoxKey);
}

}  // namespace zps::tour
