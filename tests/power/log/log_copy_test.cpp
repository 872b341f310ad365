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
    void SetUp() override {
        ShownLog::SetUp();
        QApplication::clipboard()->setText(QStringLiteral("before"));
        StartRun();
    }

    // Many samples of 1 V, 2 V and so on, without the chart's part.
    void FillWithMany() {
        auto& model = *Log.findChild<LogModel*>();
        for (int k = 1; k <= Many; ++k) model.Append({static_cast<float>(k), 0, 0, 0, 2, 0}, k);
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

TEST_F(LogCopying, SelectedRowsAreTextForASpreadsheet) {
    Sample(1, 5);
    Grid.SelectRow(2);
    QTest::keyClick(&Grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&Grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(),
              "NO\tTIME(sec)\tSTEP\tVoltage(V)\tCurrent(A)\n"
              "1\t0.00\t01\t1.00\t0.100\n"
              "2\t0.17\t02\t2.00\t0.200\n");
}

TEST_F(LogCopying, ContextMenuCopiesAndSelectsAll) {
    Sample(1, 2);
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
    EXPECT_EQ(Grid.LastSelected(), 3);
    choose(0, "복사(&C)");
    EXPECT_TRUE(Copied().ends_with("2\t0.17\t02\t2.00\t0.200\n")) << Copied();
}

TEST_F(LogCopying, LongCopyShowsItsProgressAndLeavesTheLogAlive) {
    FillWithMany();
    CopyAll();
    ASSERT_NE(Progress(), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Progress()->value() > 2000; }, 30'000));
    Sample(Many + 1, Many + 1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Progress() == nullptr; }, 30'000));
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    ASSERT_EQ(lines.size(), Many + 3);  // titles, zero row, samples, and nothing after the last end
    EXPECT_EQ(lines[1].toStdString(), "0\t0\t07\t0\t0");
    for (int k = 1; k <= Many; ++k) {
        const QStringList cells = lines[k + 1].split(u'\t');
        ASSERT_EQ(cells[0].toInt(), k);
        ASSERT_EQ(cells[3], cells[0] + ".00");
    }
}

TEST_F(LogCopying, CopyThatIsCancelledOrLosesItsRowsLeavesTheClipboardAsItWas) {
    FillWithMany();
    for (const bool cancels : {true, false}) {
        CopyAll();
        ASSERT_NE(Progress(), nullptr);
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
