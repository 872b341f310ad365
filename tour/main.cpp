// The guided session with a picture of each state. Exit code 0 only if everything came out.
#include "tour/session.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPainter>
#include <QStyleOptionTitleBar>
#include <QTemporaryDir>
#include <QtMath>

#include <iostream>

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
    const double ratio = content.devicePixelRatio();
    bar.rect = {0, 0, window.width(), window.fontMetrics().height() * 2};
    QPixmap framed(content.width(), content.height() + qCeil(bar.rect.height() * ratio));
    framed.setDevicePixelRatio(ratio);
    framed.fill(window.palette().color(QPalette::Window));
    QPainter painter(&framed);
    window.style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
    painter.drawPixmap(0, bar.rect.height(), content);
    return framed;
}

// As a desktop would that has another type face or is dark.
void DressDifferently(const QCommandLineParser& options) {
    const QString family = options.value(QStringLiteral("face"));
    if (!family.isEmpty()) {
        QFont face = QApplication::font();
        face.setFamilies({family});
        QApplication::setFont(face);
    }
    if (options.isSet(QStringLiteral("dark"))) QApplication::setPalette(zps::tour::DarkDesktop());
}

QSize SizeOf(const QString& text) {
    const QStringList sides = text.split(u'x');
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir links;  // a person's own links COMn are not touched
    qputenv("XDG_RUNTIME_DIR", links.path().toUtf8());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    zps::DressApplication();
    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral("A day's work with the panel, in pictures."));
    options.addHelpOption();
    options.addOptions(
        {{QStringLiteral("pictures"), QStringLiteral("Where they go."), QStringLiteral("folder"),
          QStringLiteral("out/tour")},
         {QStringLiteral("size"), QStringLiteral("Of the main window."),
          QStringLiteral("width x height"), QStringLiteral("1300x720")},
         {QStringLiteral("face"), QStringLiteral("In which all is set."), QStringLiteral("family")},
         {QStringLiteral("dark"), QStringLiteral("On a dark desktop.")}});
    options.process(application);
    DressDifferently(options);
    const QDir pictures(options.value(QStringLiteral("pictures")));
    pictures.mkpath(QStringLiteral("."));
    zps::tour::Session session(
        [&pictures](QWidget& window, const QString& state) {
            return WithTitleBar(window).save(pictures.filePath(state + QStringLiteral(".png")));
        },
        SizeOf(options.value(QStringLiteral("size"))));
    const bool good = session.Work();
    std::cout << "The guided session " << (good ? "came out" : "did not come out")
              << " as it should." << std::endl;
    return good ? 0 : 1;
}
