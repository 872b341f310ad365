// How the windows look in other type faces and on other desktops. With LOOKS_FOLDER set it leaves a
// picture of each window in each of them there.
#include "about/about.h"
#include "controls/colours.h"
#include "power/log/measurement_log.h"
#include "test/test.h"
#include "tests/support/panel.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFontDatabase>
#include <QPalette>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

#include <gtest/gtest.h>

namespace zps::tests {

namespace {

struct Desktop {
    const char* Face;
    bool Dark;
};

void PrintTo(const Desktop& desktop, std::ostream* stream) {
    *stream << desktop.Face << (desktop.Dark ? " dark" : " light");
}

QPalette DarkPalette() {
    QPalette dark(QColor(53, 53, 53), QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    return dark;
}

std::string NameOf(const QWidget& control, const QString& text) {
    return (control.window()->objectName() + "/" + control.objectName() + " '" + text + "'")
        .toStdString();
}

void ExpectReadable(const QWidget& control, const QString& text, QPalette::ColorRole back,
                    QPalette::ColorRole front) {
    const QPalette palette = control.palette();
    constexpr double ReadableContrast = 3.9;  // dark text on pure red has the least
    if (!control.isEnabled()) return;
    EXPECT_GE(Contrast(palette.color(back), palette.color(front)), ReadableContrast)
        << NameOf(control, text);
}

// Every text of the window is wholly there and can be read.
void ExpectGoodLooks(QWidget& window) {
    for (const auto* label : window.findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty()) continue;
        EXPECT_GE(label->width(), label->sizeHint().width()) << NameOf(*label, label->text());
        EXPECT_GE(label->height(), label->sizeHint().height()) << NameOf(*label, label->text());
        ExpectReadable(*label, label->text(), QPalette::Window, QPalette::WindowText);
    }
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty()) continue;
        const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        EXPECT_GT(button->width(), text.width() + 4) << NameOf(*button, button->text());
        ExpectReadable(*button, button->text(), QPalette::Button, QPalette::ButtonText);
    }
    for (const auto* field : window.findChildren<QLineEdit*>()) {
        if (!field->isVisible()) continue;
        const QFontMetrics metrics(field->font());
        EXPECT_GT(field->width(), metrics.horizontalAdvance(field->text()) + 4)
            << NameOf(*field, field->text());
        EXPECT_GE(field->height(), metrics.height()) << NameOf(*field, field->text());
        ExpectReadable(*field, field->text(), QPalette::Base, QPalette::Text);
    }
}

void ExpectPainted(QWidget& button, Colour colour) {
    const QImage picture = button.grab().toImage();
    for (const QPoint place : {QPoint(5, 5), {picture.width() - 6, picture.height() / 2}})
        EXPECT_EQ(picture.pixelColor(place), ToQColor(colour)) << NameOf(button, {});
}

class Looks : public testing::TestWithParam<Desktop> {
  protected:
    Looks() : Font(QApplication::font()), Palette(QApplication::palette()) {
        QFont face = Font;
        face.setFamilies({QLatin1String(GetParam().Face)});
        QApplication::setFont(face);
        if (GetParam().Dark) QApplication::setPalette(DarkPalette());
    }
    ~Looks() override {
        QApplication::setFont(Font);
        QApplication::setPalette(Palette);
    }

    // As it opens on a screen of 1366 x 768 and fills one of 3840 x 2160 pixels; the off-screen
    // display is smaller. What is watched and switched is seen without scrolling, in large digits,
    // and nothing is cut at the sides.
    void LookAtScreens(Panel& panel, const QString& state) {
        auto& main = panel.Main();
        for (const QSize screen : {QSize(1298, 730), QSize(3840, 2160)}) {
            SCOPED_TRACE(screen.width());
            main.resize(screen / main.devicePixelRatio());
            // What grows with the window comes to rest.
            const auto* view = main.findChild<QScrollArea*>();
            const bool fine = main.devicePixelRatio() > 1;  // a small screen then
            const int digitsHere = screen.width() > 2000 && !fine ? 150 : 44;
            const auto& lowest = panel.Get<QWidget>("cmdPREMOTE");
            EXPECT_TRUE(WaitFor(
                [&] {
                    return lowest.visibleRegion().boundingRect() == lowest.rect() &&
                           panel.Get<QLineEdit>("txtVOLT").font().pixelSize() >= digitsHere &&
                           !view->horizontalScrollBar()->isVisible() &&
                           (fine || !view->verticalScrollBar()->isVisible());
                },
                2s));
            for (const char* name : {"txtVOLT", "txtCURR", "txtSTEP", "lblMODE", "cmdOUTPUT",
                                     "cmdPREMOTE", "Rem_Loc", "StatusBar_RXDATA", "lblZPS_ENQ"}) {
                const auto& shown = panel.Get<QWidget>(name);
                EXPECT_EQ(shown.visibleRegion().boundingRect(), shown.rect()) << name;
                EXPECT_GE(shown.width(), shown.minimumSizeHint().width()) << name;
            }
            for (const char* name : {"txtVOLT", "txtCURR"}) {
                const QFont digits = panel.Get<QLineEdit>(name).font();
                EXPECT_GT(panel.Get<QWidget>(name).width(),
                          QFontMetrics(digits).horizontalAdvance("600.000"));
                EXPECT_GE(digits.pixelSize(), 44);
            }
            Look(main, state + QString::number(screen.width()));
        }
    }

    void LookAtMessage() {
        QTimer::singleShot(0, [this] {
            Look(*QApplication::activeModalWidget(), "message");
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        });
        ToolkitMessageBoxes().Show(
            nullptr, {MessageIcon::Question, QStringLiteral("측정 데이타 삭제"),
                      QStringLiteral("현재 데이타를 모두 삭제합니다."), MessageButtons::YesNo});
    }

    void Look(QWidget& window, const QString& state) {
        EXPECT_TRUE(WaitFor(
            [&window] { return window.height() >= window.minimumSizeHint().height(); }, 1s));
        ExpectGoodLooks(window);
        const QString folder = qEnvironmentVariable("LOOKS_FOLDER");
        if (folder.isEmpty()) return;
        const QString name = QStringLiteral("%1-%2-%3-%4.png")
                                 .arg(state, QString(GetParam().Face).remove(' '),
                                      GetParam().Dark ? "dark" : "light")
                                 .arg(window.devicePixelRatio());
        EXPECT_TRUE(window.grab().save(QDir(folder).filePath(name)));
    }

    QFont Font;
    QPalette Palette;
};

}  // namespace

TEST_P(Looks, NoTextIsClippedOrHardToReadInAnyWindow) {
    ASSERT_TRUE(QFontDatabase::hasFamily(QLatin1String(GetParam().Face)));
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Identify());
    Look(*panel.Run.Settings(), "settings");
    ExpectPainted(panel.GetSetting<QPushButton>("cmdZPS_ENQ"), Colour::LightGreen);
    panel.Run.Settings()->close();
    ASSERT_TRUE(WaitFor([&] { return panel.Text("Rem_Loc") == "REMOTE"; }));
    panel.Type("txPVOLT_0", "123.4");
    panel.Leave();
    ASSERT_TRUE(panel.Settle());
    panel.Click("txPSTEP_3");
    ASSERT_TRUE(panel.Settle());
    panel.Click("txPSTEP_0");
    ASSERT_TRUE(panel.Settle());
    LookAtScreens(panel, "main");
    panel.Click("cmdOUTPUT");
    const auto* log = panel.Main().findChild<MeasurementLog*>();
    ASSERT_TRUE(WaitFor([&] { return log->RowCount() >= 8; }));
    LookAtScreens(panel, "running");
    const auto frame = [&] {
        const QImage picture = panel.Get<QFrame>("fraOUTPUT").grab().toImage();
        return picture.pixelColor(2, picture.height() / 2);
    };
    EXPECT_EQ(frame(), ToQColor(Colour::DarkRed));
    panel.Line().SetFaults({.Silent = true});
    ASSERT_TRUE(WaitFor([&] { return panel.Text("lblREADING").startsWith("응답 없음"); }));
    LookAtScreens(panel, "stale");
    panel.Line().SetFaults({});
    ASSERT_TRUE(WaitFor([&] { return panel.Text("lblREADING") == "측정값"; }));
    panel.Line().Trip(1, 5);
    ASSERT_TRUE(WaitFor([&] { return panel.Text("lblREADING") == "마지막 측정값"; }));
    EXPECT_NE(frame(), ToQColor(Colour::DarkRed));
    LookAtScreens(panel, "tripped");
    panel.Type("txPVOLT_0", "100");
    panel.Leave();
    EXPECT_EQ(panel.Text("lblREADING"), "전압 설정값 · 전류 마지막 측정값");
    ASSERT_TRUE(panel.Settle());
    panel.Choose("mnuTEST");
    auto& test = *panel.Run.Test();
    const auto probe = [&](const char* button, const char* verdict) {
        QTest::mouseClick(test.findChild<QPushButton*>(button), Qt::LeftButton);
        const auto* result = test.findChild<QLabel*>("lblRESULT");
        EXPECT_TRUE(WaitFor([&] { return result->text() == verdict; })) << verdict;
    };
    constexpr int OverCurrentTrip = 7;
    panel.Line().Trip(1, OverCurrentTrip);
    probe("cmdDLE", "GOOD  DLE");
    Look(test, "test");
    ExpectPainted(*test.findChild<QPushButton*>("cmdDLE"), Colour::LightCyan);
    panel.Line().SetFaults({.Garble = 1});
    probe("cmdENQ", "ERROR  ENQ");
    Look(test, "test-error");
    test.close();
    LookAtMessage();
    panel.Choose("mnuHELP");
    Look(*panel.Main().findChild<frmAbout*>(), "about");
}

INSTANTIATE_TEST_SUITE_P(Desktops, Looks,
                         testing::Values(Desktop{"NanumGothic", false},
                                         Desktop{"NanumGothic", true}, Desktop{"UnDotum", false},
                                         Desktop{"Baekmuk Gulim", true}));

}  // namespace zps::tests
