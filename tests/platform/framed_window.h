// A window with a frame in its middle, one button in the frame and one beside it.
#pragma once

#include <QFrame>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace zps::platform {

struct FramedWindow {
    FramedWindow() {
        Window.setGeometry(200, 200, 300, 220);
        Frame.setGeometry(80, 80, 180, 100);
        Inside.setGeometry(50, 30, 100, 40);
        Outside.setGeometry(10, 10, 80, 40);
        PopUp.addAction("entry");
    }

    bool Show() {
        Window.show();
        return QTest::qWaitForWindowActive(&Window);
    }

    // Where a control is on the display, in the display's pixels.
    static QRect PixelsOf(const QWidget& control) {
        const qreal scale = control.devicePixelRatio();
        return {(control.mapToGlobal(QPointF(0, 0)) * scale).toPoint(), control.size() * scale};
    }

    QWidget Window;
    QFrame Frame{&Window};
    QPushButton Inside{&Frame};
    QPushButton Outside{&Window};
    QMenu PopUp;
};

}  // namespace zps::platform
