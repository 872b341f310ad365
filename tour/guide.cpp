#include "tour/guide.h"

#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionTitleBar>

#include <chrono>
#include <iostream>

namespace zps::tour {

using namespace std::chrono_literals;

namespace {

// An off-screen display puts no frame round a window, and messages are looked up by their titles.
QPixmap WithTitleBar(QWidget& window) {
    const QPixmap content = window.grab();
    QStyleOptionTitleBar bar;
    bar.initFrom(&window);
    bar.text = window.windowTitle();
    bar.icon = window.windowIcon();
    bar.titleBarState = Qt::WindowActive;
    bar.titleBarFlags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    bar.rect = {0, 0, content.width(), window.fontMetrics().height() * 2};
    QPixmap framed(content.width(), bar.rect.height() + content.height());
    framed.fill(window.palette().color(QPalette::Window));
    QPainter painter(&framed);
    window.style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
    painter.drawPixmap(0, bar.rect.height(), content);
    return framed;
}

}  // namespace

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
    QApplication::processEvents();  // what has been seen is perhaps not laid out yet
    const QString file = Pictures.filePath(name + QStringLiteral(".png"));
    if (!WithTitleBar(window).save(file)) {
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
