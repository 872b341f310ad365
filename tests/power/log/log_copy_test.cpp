#include "tests/power/log/shown_log.h"
#include "tests/support/processor_time.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>

namespace zps::tests {
namespace {

constexpr int Many = 60'000;

class LogCopying : public ShownLog {
  protected:
    // Copies all of many samples of 1 V, 2 V and so on, appended without the chart's part.
    void CopyMany() {
        QApplication::clipboard()->setText(QStringLiteral("before"));
        auto& model = *Log.findChild<LogModel*>();
        for (int k = 1; k <= Many; ++k) model.Append({static_cast<float>(k), 0, 0, 0, 2, 0}, k);
        CopyAll();
        ASSERT_NE(Progress(), nullptr);
    }
    void CopyAll() {
        Log.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &Log; }));
        QTest::keyClick(&Grid, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&Grid, Qt::Key_C, Qt::ControlModifier);
    }
    QProgressDialog* Progress() const {
        for (auto* box : Grid.findChildren<QProgressDialog*>())
            if (box->isVisible()) return box;
        return nullptr;
    }
    static std::string Copied() { return QApplication::clipboard()->text().toStdString(); }
};

const std::string Titles =
    "NO\tTIME(sec)\tSTEP\tVoltage(V)\tCurrent(A)\t시각\t모드\t고장\t상태 바이트\n";
const std::string Origin =
    "모델\tZPS-1500\n정격\t150V/10A\n포트\tCOM1\n주소\t7\n"
    "시작\t2026-11-21 09:00:00\n";

TEST_F(LogCopying, SelectedRowsAreTextForASpreadsheetByKeyAndMenu) {
    QLocale::setDefault(QLocale::German);
    Sample(1, 5);
    Grid.SelectRow(2);
    QTest::keyClick(&Grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&Grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "ZPS-RS232\t" + QApplication::applicationVersion().toStdString() + "\n" +
                            Origin +
                            "통계\t최소\t최대\t평균\t마지막\n"
                            "Voltage(V)\t1.00\t2.00\t1.50\t2.00\n"
                            "Current(A)\t0.100\t0.200\t0.150\t0.200\n"
                            "Power(W)\t0.100\t0.400\t0.250\t0.400\n"
                            "전력량(Wh)\t0.000012\n전하량(Ah)\t0.000007\n"
                            "측정 수\t2\n시간(sec)\t0.17\n적분 제외(sec)\t0.00\n\n" +
                            Titles +
                            "1\t0.00\t01\t1.00\t0.100\t2026-11-21 09:00:00.25\tCV\t0\t0x00\n"
                            "2\t0.17\t02\t2.00\t0.200\t2026-11-21 09:00:00.42\tCV\t0\t0x00\n");
    const auto choose = [this](int entry, const char* text) {
        QTimer::singleShot(0, [=] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            EXPECT_EQ(menu->actions()[entry]->text().toStdString(), text);
            for (int k = 0; k <= entry; ++k) QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, {10, 30},
                                Grid.mapToGlobal(QPoint(10, 30)));
        QApplication::sendEvent(Grid.viewport(), &event);
    };
    choose(1, "모두 선택(&A)");
    choose(0, "복사(&C)");
    // What stands beside them there is of the latest run, or set values: nobody measured it.
    EXPECT_NE(Copied().find(Titles + "0\t0\t\t\t\t\t\t\t\n1\t"), std::string::npos) << Copied();
    EXPECT_TRUE(Copied().ends_with("\t5.00\t0.500\t2026-11-21 09:00:00.91\tCV\t0\t0x00\n"));
    QLocale::setDefault(QLocale::system());
    const auto& said = Control<QLabel>("lblCOPIED");
    EXPECT_EQ(said.text(), "6행 복사됨");
    EXPECT_TRUE(QTest::qWaitFor([&] { return said.text().isEmpty(); }, 4000));
}

TEST_F(LogCopying, TellsOfEachRunWhoseItIsAndOfEachRowWhatTheSupplyReported) {
    Sample(1, 1);
    Log.SetSupply([] { return SupplyOnLine{"ZPS-100", {}, "COM2 /dev/ttyUSB0", 30}; });
    Wall += std::chrono::hours(24);
    Log.Restart({});
    Log.Append(3, {12.0F, 3}, {0.5F, 4}, 0xD5);
    Time += std::chrono::minutes(70);
    Log.Append(3, {12.0F, 3}, {0.5F, 4}, 0xC4);
    CopyAll();
    EXPECT_NE(Copied().find(Origin + "모델\tZPS-100\n정격\t\n포트\tCOM2 /dev/ttyUSB0\n주소\t30\n"
                                     "시작\t2026-11-22 09:00:00\n통계"),
              std::string::npos)
        << Copied();
    EXPECT_NE(Copied().find("측정 수\t3\n시간(sec)\t4200.00\n적분 제외(sec)\t4200.00\n"),
              std::string::npos);
    EXPECT_TRUE(
        Copied().ends_with("12.000\t0.5000\t2026-11-22 09:00:00.25\tCC\t1\t0xd5\n"
                           "2\t4200.00\t03\t12.000\t0.5000\t2026-11-22 10:10:00.25\t"
                           "CV\t0\t0xc4\n"))
        << Copied();
}

TEST_F(LogCopying, LongCopyShowsItsProgressAndLeavesTheLogAlive) {
    CopyMany();
    ASSERT_TRUE(QTest::qWaitFor([this] { return Progress()->value() > 2000; }, 30'000));
    Sample(Many + 1, Many + 1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Progress() == nullptr; }, 30'000));
    const QString copied = QApplication::clipboard()->text();
    const QStringList lines = copied.mid(copied.indexOf("NO\t")).split(u'\n');
    ASSERT_EQ(lines.size(), Many + 3);  // titles, zero row, samples, and nothing after the last end
    for (int k = 1; k <= Many; ++k) {
        const QStringList cells = lines[k + 1].split(u'\t');
        ASSERT_EQ(cells[0] + ' ' + cells[3], QString("%1 %1.00").arg(k));
    }
}

// A twentieth of this is usual.
TEST_F(LogCopying, CopyOfAnHourOfRowsHoldsNobodyUp) {
    for (int k = 1; k <= 8000; ++k) {
        Time += std::chrono::milliseconds(165);
        Log.Append(1, {12.0F, 3}, {0.5F, 4}, 0xC4);
    }
    const double before = ProcessorTime();
    CopyAll();
    const auto& said = Control<QLabel>("lblCOPIED");
    ASSERT_TRUE(QTest::qWaitFor([&] { return said.text() == QStringLiteral("8001행 복사됨"); }));
    const double took = ProcessorTime() - before;
    RecordProperty("milliseconds", std::to_string(took * 1000));
    EXPECT_LT(took, 1);
}

TEST_F(LogCopying, CopyThatIsCancelledOrLosesItsRowsLeavesTheClipboardAsItWas) {
    for (const bool cancels : {true, false}) {
        CopyMany();
        if (cancels)
            QTest::mouseClick(Progress()->findChild<QPushButton*>(), Qt::LeftButton);
        else
            Log.Clear({}, {}, {});
        EXPECT_EQ(Progress(), nullptr);
        for (int turn = 0; turn < Many / 100; ++turn) QApplication::processEvents();
        EXPECT_EQ(Copied(), "before");
    }
}

}  // namespace
}  // namespace zps::tests
