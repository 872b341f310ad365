#include "tests/power/log/shown_log.h"

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

TEST_F(LogCopying, SelectedRowsAreTextForASpreadsheetByKeyAndMenu) {
    Sample(1, 5);
    Grid.SelectRow(2);
    QTest::keyClick(&Grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&Grid, Qt::Key_C, Qt::ControlModifier);
    const std::string titles = "NO\tTIME(sec)\tSTEP\tVoltage(V)\tCurrent(A)\n";
    EXPECT_EQ(Copied(), titles + "1\t0.00\t01\t1.00\t0.100\n2\t0.17\t02\t2.00\t0.200\n");
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
    EXPECT_TRUE(Copied().starts_with(titles + "0\t0\t07\t0\t0\n1\t"));
    EXPECT_TRUE(Copied().ends_with("5\t0.66\t05\t5.00\t0.500\n")) << Copied();
    const auto& said = Control<QLabel>("lblCOPIED");
    EXPECT_EQ(said.text(), "6행 복사됨");
    EXPECT_TRUE(QTest::qWaitFor([&] { return said.text().isEmpty(); }, 4000));
}

TEST_F(LogCopying, LongCopyShowsItsProgressAndLeavesTheLogAlive) {
    CopyMany();
    ASSERT_TRUE(QTest::qWaitFor([this] { return Progress()->value() > 2000; }, 30'000));
    Sample(Many + 1, Many + 1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Progress() == nullptr; }, 30'000));
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    ASSERT_EQ(lines.size(), Many + 3);  // titles, zero row, samples, and nothing after the last end
    for (int k = 1; k <= Many; ++k) {
        const QStringList cells = lines[k + 1].split(u'\t');
        ASSERT_EQ(cells[0] + ' ' + cells[3], QString("%1 %1.00").arg(k));
    }
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
