#include "power/log/curve_view.h"
#include "power/log/measurement_log.h"
#include "tests/power/run_panel.h"

#include <QClipboard>
#include <QImage>
#include <QTabBar>

#include <algorithm>

namespace zps::tests {
namespace {

class Pictures : public ScriptedRun {
  protected:
    QImage Copied(const char* menu) {
        QApplication::clipboard()->clear();
        Choose(menu);
        return QApplication::clipboard()->image();
    }
    // Blocks of four pixels that no picture of half the resolution could be enlarged to.
    static int FineBlocks(const QImage& picture, const QRect& within) {
        int count = 0;
        for (int y = within.top() & ~1; y < within.bottom(); y += 2) {
            for (int x = within.left() & ~1; x < within.right(); x += 2) {
                const QRgb one = picture.pixel(x, y);
                count += picture.pixel(x + 1, y) != one || picture.pixel(x, y + 1) != one;
            }
        }
        return count;
    }
};

TEST_F(Pictures, OfTheCurveAndTheWindowAreTwiceAsFineAsTheScreenBelowTheirTitle) {
    ASSERT_TRUE(SwitchOn());
    auto& log = *Main().findChild<MeasurementLog*>();
    ASSERT_TRUE(WaitFor([&] { return log.RowCount() > 5; }));
    for (const int tab : {0, 1}) {
        Get<QTabBar>("tabCURVE").setCurrentIndex(tab);
        QApplication::processEvents();
        for (const auto& [menu, shown, told] :
             {std::tuple{"mnuData_Curve", &log.Curves(), "그래프 그림 복사됨"},
              {"mnuData_Window", static_cast<QWidget*>(&Main()), "창 그림 복사됨"}}) {
            SCOPED_TRACE(menu);
            const QImage picture = Copied(menu);
            ASSERT_EQ(picture.width(), 2 * shown->width());
            EXPECT_GT(picture.height(), 2 * shown->height() + 40);
            EXPECT_EQ(Text("lblCOPIED"), told);
            EXPECT_GT(FineBlocks(picture, {0, 0, picture.width(), 60}), 100);  // the title
            const auto* chart = log.findChild<QWidget*>(tab == 0 ? "MSChart1" : "fraCURVE");
            const int left = 2 * chart->mapTo(shown, QPoint(0, 0)).x();
            const int below = 2 * (shown->height() - chart->mapTo(shown, QPoint(0, 0)).y());
            const int foot = menu == std::string("mnuData_Curve") ? 60 : 0;
            const QRect axis(left, picture.height() - below - foot, 120, 2 * chart->height() - 60);
            EXPECT_GT(FineBlocks(picture, axis & picture.rect()), 40);
        }
    }
    Boxes.WhileUp = [&](const Message&) {
        EXPECT_TRUE(Copied("mnuData_Window").isNull());
        EXPECT_TRUE(Copied("mnuData_Curve").isNull());
    };
    ASSERT_TRUE(Press("cmdOUTPUT"));
    Choose("mnuData_Clear");
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    const auto offered = [](const QWidget& view) {
        QStringList names;
        for (const QAction* action : view.actions()) names << action->objectName();
        return names;
    };
    for (const char* view : {"MSChart1", "fraCURVE"})
        EXPECT_TRUE(offered(Get<QWidget>(view)).contains("mnuData_Curve")) << view;
}

// Which widgets are painted.
class Painted : public QObject {
  public:
    QStringList Names;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) Names += watched->objectName();
        return false;
    }
};

TEST_F(Pictures, AReadingPaintsWhatShowsItAndNothingBelow) {
    ASSERT_TRUE(SwitchOn());
    ASSERT_TRUE(Handled(Reading(4)));
    Painted painted;
    qApp->installEventFilter(&painted);
    Bytes other = Reading(4);
    other[7] = 0x50;
    other[10] = 0x20;
    ASSERT_TRUE(Handled(other));
    ASSERT_TRUE(WaitFor([&] { return painted.Names.contains("lblELAPSED"); }));
    for (const char* name : {"txtVOLT", "txtCURR", "txtWATT", "StatusBar_RXDATA_8"})
        EXPECT_TRUE(painted.Names.contains(QLatin1String(name))) << name;
    for (const char* name : {"POWER", "frmPOWERDISPLAY", "fraOUTPUT", "fraPLATE", "fraDATA"})
        EXPECT_FALSE(painted.Names.contains(QLatin1String(name))) << name;
}

}  // namespace
}  // namespace zps::tests
