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

// All of the window's texts in controls of this kind are wholly there and can be read.
template <class Control>
void ExpectGoodLooks(QWidget& window, QPalette::ColorRole back, QPalette::ColorRole front,
                     const std::function<QSize(const Control&)>& least) {
    constexpr double ReadableContrast = 3.9;  // dark text on pure red has the least
    for (const auto* control : window.findChildren<Control*>()) {
        if (!control->isVisible() || control->text().isEmpty()) continue;
        SCOPED_TRACE((window.objectName() + "/" + control->objectName() + " " + control->text())
                         .toStdString());
        EXPECT_EQ(control->size().expandedTo(least(*control)), control->size());
        const QPalette palette = control->palette();
        const double contrast = Contrast(palette.color(back), palette.color(front));
        EXPECT_TRUE(contrast >= ReadableContrast || !control->isEnabled()) << contrast;
    }
}

void ExpectGoodLooks(QWidget& window) {
    const auto inFrame = [](const auto& control) {
        return control.fontMetrics().size(Qt::TextShowMnemonic, control.text()) + QSize(5, 0);
    };
    ExpectGoodLooks<QLabel>(window, QPalette::Window, QPalette::WindowText,
                            [](const QLabel& label) { return label.sizeHint(); });
    ExpectGoodLooks<QAbstractButton>(window, QPalette::Button, QPalette::ButtonText, inFrame);
    ExpectGoodLooks<QLineEdit>(window, QPalette::Base, QPalette::Text, inFrame);
}

QColor PaintOf(QWidget& button) {
    return button.grab().toImage().pixelColor(5, 5);
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
            QApplication::processEvents();
            EXPECT_FALSE(main.findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
            for (const char* name : {"txtVOLT", "txtCURR", "txtSTEP", "lblMODE", "cmdOUTPUT",
                                     "cmdPREMOTE", "Rem_Loc", "StatusBar_RXDATA", "lblZPS_ENQ"}) {
                const auto& shown = panel.Get<QWidget>(name);
                EXPECT_EQ(shown.visibleRegion().boundingRect(), shown.rect()) << name;
                EXPECT_GE(shown.width(), shown.minimumSizeHint().width()) << name;
            }
            for (const char* name : {"txtVOLT", "txtCURR"}) {
                const QFontMetrics digits(panel.Get<QLineEdit>(name).font());
                EXPECT_GT(panel.Get<QWidget>(name).width(), digits.horizontalAdvance("600.0000"));
                EXPECT_GT(digits.height(), 2 * QFontMetrics(main.font()).height());
            }
            Look(main, state + QString::number(screen.width()));
        }
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
    EXPECT_EQ(PaintOf(panel.GetSetting<QPushButton>("cmdZPS_ENQ")), ToQColor(Colour::LightGreen));
    panel.Run.Settings()->close();
    ASSERT_TRUE(WaitFor([&] { return panel.Text("Rem_Loc") == "REMOTE"; }));
    panel.Enter("txPVOLT_0", "123.4");
    for (const char* step : {"txPSTEP_3", "txPSTEP_0"}) {
        ASSERT_TRUE(panel.Settle());
        panel.Click(step);
    }
    ASSERT_TRUE(panel.Settle());
    LookAtScreens(panel, "main");
    panel.Click("cmdOUTPUT");
    const auto* log = panel.Main().findChild<MeasurementLog*>();
    ASSERT_TRUE(WaitFor([&] { return log->RowCount() >= 8; }));
    LookAtScreens(panel, "running");
    panel.Click("cmdOUTPUT");
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
    EXPECT_EQ(PaintOf(*test.findChild<QPushButton*>("cmdDLE")), ToQColor(Colour::LightCyan));
    panel.Line().SetFaults({.Garble = 1});
    probe("cmdENQ", "ERROR  ENQ");
    Look(test, "test-error");
    test.close();
    panel.Choose("mnuHELP");
    Look(*panel.Main().findChild<frmAbout*>(), "about");
}

INSTANTIATE_TEST_SUITE_P(Desktops, Looks,
                         testing::Values(Desktop{"NanumGothic", false},
                                         Desktop{"NanumGothic", true}, Desktop{"UnDotum", false},
                                         Desktop{"Baekmuk Gulim", true}));

}  // namespace zps::tests
