// A window with a frame in its middle, one button in the frame and one beside it.
#pragma once

#include <QFrame>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace zps::platform {

struct FramedWindow {
    FramedWindow() {
        Window.setGeometry(300, 300, 400, 300);
        Frame.setGeometry(100, 100, 200, 100);
        Inside.setGeometry(50, 30, 100, 40);
        Outside.setGeometry(10, 10, 80, 40);
        PopUp.addAction("entry");
    }

    bool Show() {
        Window.show();
        return QTest::qWaitForWindowActive(&Window);
    }

    QRect FrameOnScreen() const { return {Frame.mapToGlobal(QPoint(0, 0)), Frame.size()}; }

    QWidget Window;
    QFrame Frame{&Window};
    QPushButton Inside{&Frame};
    QPushButton Outside{&Window};
    QMenu PopUp;
};

}  // namespace zps::platform
