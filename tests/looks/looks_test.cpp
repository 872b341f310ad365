// How the windows look in other type faces, sizes and on other desktops, in every state of a guided
// session. With LOOKS_FOLDER set it leaves the pictures there.
#include "controls/big_read_out.h"
#include "controls/colours.h"
#include "controls/lamp.h"
#include "controls/number_face.h"
#include "power/log/chart_table.h"
#include "power/log/curve_colours.h"
#include "power/log/statistics_view.h"
#include "power/panel/functions.h"
#include "power/panel/power_controls.h"
#include "tests/support/panel.h"
#include "tests/support/runtime_folder.h"
#include "tour/session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <unordered_map>
#include <utility>

namespace zps::tests {

namespace {

using enum Colour;

struct Desktop {
    const char* Face;
    bool Dark;
    QSize Window;  // in pixels of the screen
};

void PrintTo(const Desktop& desktop, std::ostream* stream) {
    *stream << desktop.Face << (desktop.Dark ? " dark " : " light ") << desktop.Window.width();
}

// The smallest in which all is in sight: a screen of 1366 x 768 at 150 %.
constexpr QSize LeastSize(900, 470);

std::string NameOf(const QWidget& control, const QString& text) {
    return (control.window()->objectName() + "/" + control.objectName() + " '" + text + "'")
        .toStdString();
}

// Of what is painted: between the ground, the colour of most pixels, and what stands out most. The
// ground of a button is a gradient, and its ring of focus would win by its many pixels.
double ContrastOf(QWidget& control) {
    const bool ringed = qobject_cast<QAbstractButton*>(&control) != nullptr;
    const int ring = ringed ? qRound(3 * control.devicePixelRatio()) : 0;
    const QImage whole = control.grab().toImage();
    const QImage picture = whole.copy(whole.rect().adjusted(ring, ring, -ring, -ring));
    std::unordered_map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
    }
    const auto most = [](const auto& one, const auto& other) { return one.second < other.second; };
    const QColor ground = std::max_element(counts.begin(), counts.end(), most)->first;
    double best = 1;
    for (const auto& [colour, count] : counts) best = std::max(best, Contrast(ground, colour));
    return best;
}

void ExpectReadable(QWidget& control, const QString& text, QSize needed) {
    EXPECT_GE(control.width(), needed.width()) << NameOf(control, text);
    EXPECT_GE(control.height(), needed.height()) << NameOf(control, text);
    EXPECT_GE(ContrastOf(control), 4.5) << NameOf(control, text);
}

// Every text of the window is wholly there and can be read, enabled or not.
void ExpectGoodLooks(QWidget& window) {
    const auto shows = [](const auto& control) {
        return control.isVisible() && !control.text().isEmpty();
    };
    for (auto* label : window.findChildren<QLabel*>()) {
        if (!shows(*label)) continue;
        const int lines = label->heightForWidth(label->width());  // negative where it never wraps
        const QSize whole = label->sizeHint();
        ExpectReadable(*label, label->text(), lines < 0 ? whole : QSize(0, lines));
    }
    for (auto* button : window.findChildren<QAbstractButton*>()) {
        if (!shows(*button)) continue;
        const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        ExpectReadable(*button, button->text(), text + QSize(4, 0));
    }
    for (auto* field : window.findChildren<QLineEdit*>()) {
        if (!shows(*field)) continue;
        const QFontMetrics metrics(field->font());
        ExpectReadable(*field, field->text(),
                       {metrics.horizontalAdvance(field->text()) + 4, metrics.height()});
    }
    for (auto* view : window.findChildren<StatisticsView*>())
        if (view->isVisible()) ExpectReadable(*view, view->Words(), view->minimumSizeHint());
}

// What is watched and switched is seen without scrolling, in large digits.
void ExpectInSight(QWidget& main) {
    EXPECT_FALSE(main.findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
    for (const char* name : {"txtVOLT", "txtCURR", "txtSTEP", "lblMODE", "cmdOUTPUT", "cmdPREMOTE",
                             "Rem_Loc", "StatusBar_RXDATA", "lblZPS_ENQ"}) {
        const auto* shown = main.findChild<QWidget*>(QLatin1String(name));
        EXPECT_EQ(shown->visibleRegion().boundingRect(), shown->rect()) << name;
    }
    for (const char* name : {"txtVOLT", "txtCURR"}) {
        const auto* shown = main.findChild<QWidget*>(QLatin1String(name));
        const QFontMetrics digits(shown->font());
        EXPECT_GT(shown->width(), digits.horizontalAdvance("600.000"));
        EXPECT_GE(shown->font().pixelSize() * qApp->devicePixelRatio(), 44);
    }
}

// A window that is twice as large as it needs to be has no text as small as in a usual one.
void ExpectGrown(QWidget& main) {
    if (main.width() < 3200 || main.height() < 1800) return;
    QList<QWidget*> texts{main.findChild<QWidget*>("MSFlexGrid1"),
                          main.findChild<QWidget*>("MSChart1")};
    for (const QWidget* part : std::initializer_list<QWidget*>{
             main.findChild<QScrollArea*>()->widget(), main.findChild<QStatusBar*>()}) {
        for (auto* label : part->findChildren<QLabel*>()) texts << label;
        for (auto* button : part->findChildren<QAbstractButton*>()) texts << button;
        for (auto* field : part->findChildren<QLineEdit*>()) texts << field;
    }
    for (const QWidget* text : texts)
        EXPECT_GE(QFontInfo(text->font()).pixelSize(), 18) << NameOf(*text, {});
}

// The curves tell their axes by their colours, while the window is disabled, too.
void ExpectReadableCurves(QPalette palette) {
    for (const auto group : {QPalette::Active, QPalette::Disabled}) {
        palette.setCurrentColorGroup(group);
        for (int column = 0; column < ChartColumns; ++column)
            EXPECT_GE(Contrast(CurveColour(column, palette), palette.color(QPalette::Base)), 4.5);
    }
}

void ExpectPainted(QWidget& window, const char* name, Colour colour) {
    auto* button = window.findChild<QAbstractButton*>(QLatin1String(name));
    if (button == nullptr) return;
    const QImage picture = button->grab().toImage();
    for (const QPoint place : {QPoint(5, 5), {picture.width() - 6, picture.height() / 2}})
        EXPECT_EQ(picture.pixelColor(place), ToQColor(colour)) << name;
}

// From a screen of 1366 x 768 on all lamps are of full size.
void ExpectLamps(QWidget& main) {
    const bool room = main.width() >= 1298 && main.height() >= 700;
    for (const Function& function : Functions()) {
        const auto* lamp = main.findChild<QWidget*>(QLatin1String(function.LightName));
        EXPECT_GE(std::min(lamp->width(), lamp->height()), room ? 32 : 24) << function.LightName;
    }
}

// px, of the glass of a lit lamp: its white spot does not reach its sides.
double GlassOf(const QImage& lit, const QColor& colour) {
    int left = lit.width();
    int right = 0;
    for (int x = 0; x < lit.width(); ++x) {
        if (lit.pixelColor(x, lit.height() / 2) != colour) continue;
        left = std::min(left, x);
        right = x;
    }
    return (right - left + 1) / lit.devicePixelRatio();
}

// The share of a picture that looks clearly otherwise in another without colours.
double GreyDifference(const QImage& one, const QImage& other) {
    int differ = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            differ += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) >= 40;
    }
    return static_cast<double>(differ) / (one.width() * one.height());
}

int LowestInk(BigReadOut& shown, const QString& text) {
    shown.ShowValue(text);
    const QImage picture = shown.grab().toImage();
    for (int y = picture.height() - 1; y > 0; --y) {
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != picture.pixel(0, 0)) return y;
    }
    return 0;
}

class Looks : public testing::TestWithParam<Desktop> {
  protected:
    Looks() : Font(QApplication::font()), Palette(QApplication::palette()) {
        QFont face = Font;
        face.setFamilies({QLatin1String(GetParam().Face)});
        QApplication::setFont(face);
        if (GetParam().Dark) QApplication::setPalette(tour::DarkDesktop());
    }
    ~Looks() override {
        QApplication::setFont(Font);
        QApplication::setPalette(Palette);
    }

    void LookAt(QWidget& window, const QString& state) const {
        SCOPED_TRACE(state.toStdString());
        // What grows with the window comes to rest.
        EXPECT_TRUE(
            WaitFor([&] { return window.height() >= window.minimumSizeHint().height(); }, 1s));
        ExpectGoodLooks(window);
        ExpectPainted(window, "cmdZPS_ENQ", LightGreen);
        ExpectPainted(window, "optPORT_2", LightGrey);
        if (state.contains("test")) ExpectPainted(window, "cmdDLE", LightCyan);
        if (auto* region = window.findChild<QFrame*>("fraOUTPUT"); region && region->isVisible()) {
            const QImage picture = region->grab().toImage();
            const bool red = picture.pixelColor(2, picture.height() / 2) == ToQColor(DarkRed);
            EXPECT_EQ(red, state.contains(QRegularExpression("running|silent|automatic")));
            ExpectInSight(window);
            ExpectLamps(window);
            ExpectGrown(window);
            ExpectReadableCurves(window.palette());
        }
        if (state.contains("failed-check")) {  // Space opens the settings again
            EXPECT_EQ(window.focusWidget(), window.findChild<QWidget*>("cmdSET_MANU"));
        }
        const QString folder = qEnvironmentVariable("LOOKS_FOLDER");
        if (folder.isEmpty()) return;
        const QString name =
            QStringLiteral("%1-%2.png")
                .arg(QString::fromStdString(testing::PrintToString(GetParam())).replace(' ', '-'),
                     state);
        EXPECT_TRUE(window.grab().save(QDir(folder).filePath(name)));
    }

    QFont Font;
    QPalette Palette;
    RuntimeFolder Folder;
};

}  // namespace

TEST_P(Looks, NoTextIsClippedOrHardToReadInAnyState) {
    ASSERT_TRUE(QFontDatabase::hasFamily(QLatin1String(GetParam().Face)));
    tour::Session session(
        [this](QWidget& window, const QString& state) {
            LookAt(window, state);
            return true;
        },
        (GetParam().Window / qApp->devicePixelRatio()).expandedTo(LeastSize));
    EXPECT_TRUE(session.Work());
}

TEST(LampsAndDigits, ALampStandsOutFromItsRimAndItsStatesAreToldApartWithoutColours) {
    for (const Function& function : Functions()) {
        for (const auto& [side, glass] : {std::pair{24, 20}, {32, 28}, {36, 28}, {72, 56}}) {
            for (const bool dark : {false, true}) {
                SCOPED_TRACE(function.LightName + std::to_string(side) + (dark ? " dark" : ""));
                Lamp lamp(function.Idle);
                if (dark) lamp.setPalette(tour::DarkDesktop());
                lamp.setEnabled(!dark || side != 36);
                lamp.resize(side, side);
                const QImage idle = lamp.grab().toImage();
                lamp.Light(function.Active);
                const QImage lit = lamp.grab().toImage();
                const QColor colour = ToQColor(function.Active);
                const int middle = lit.height() / 2;
                EXPECT_EQ(lit.pixelColor(middle, middle), colour);
                EXPECT_GE(Contrast(colour, lit.pixelColor(0, middle)), 3);
                EXPECT_NEAR(GlassOf(lit, colour), glass, 2);
                EXPECT_GE(GreyDifference(idle, lit), 0.2);
            }
        }
    }
}

TEST(LampsAndDigits, TheDecimalPointStandsOnTheBaseLineOfTheDigits) {
    for (const int height : {30, 60, 140}) {
        BigReadOut shown("txtVOLT", "V", "V", "000.000", {.Least = 18, .Most = 120});
        shown.resize(height * 6, height);
        EXPECT_LE(LowestInk(shown, "."), LowestInk(shown, "8")) << height;
        EXPECT_NE(LowestInk(shown, "8"), LowestInk(shown, ",")) << height;  // it would be seen
    }
}

INSTANTIATE_TEST_SUITE_P(Desktops, Looks,
                         testing::Values(Desktop{"NanumGothic", false, {1298, 730}},
                                         Desktop{"NanumGothic", true, {3840, 2160}},
                                         Desktop{"UnDotum", true, {1298, 730}},
                                         Desktop{"Baekmuk Gulim", false, {1900, 1000}}));

}  // namespace zps::tests
