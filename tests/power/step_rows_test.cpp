// The rows of the step list: which can be used, what they show, and what a click on one sends.
#include "controls/entry_field.h"
#include "tests/power/step_panel.h"

#include <QPalette>
#include <QRegularExpression>
#include <QWheelEvent>

#include <algorithm>

namespace zps::tests {
namespace {

const char* const Columns[]{"txPVOLT", "txPCURR", "txPTIME", "txPSLOPE", "txPOVP"};
const QString OnlyFirst = "BVCTSO B B B B B B";

struct StepRows : StepTest {
    StepRows() : StepTest({.Volts = 200}) {}
    void Upload(int row) {
        ClickStep(row);
        EXPECT_EQ(Sent().size(), 1U);
    }
    QString FocusAfter(Qt::Key key) {
        QTest::keyClick(Main().focusWidget(), key);
        return Main().focusWidget()->objectName();
    }
    void TurnWheel() {
        QWheelEvent turn({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Bar(), &turn);
    }
    // What has been disabled, the rows' own controls apart.
    QString Disabled() {
        QStringList names;
        for (const QWidget* control : Main().findChildren<QWidget*>())
            if (control->testAttribute(Qt::WA_ForceDisabled)) names += control->objectName();
        for (const QAction* menu : Main().findChildren<QAction*>())
            if (!menu->isEnabled()) names += menu->objectName();
        names = names.filter(QRegularExpression("^(?!txP[A-Z]+_)[a-z]"));
        names.sort();
        return names.join(' ');
    }
};

TEST_F(StepRows, AnEditLocksThePointerIntoItsRowUntilTheValueIsBack) {
    EXPECT_EQ(Usable(), OnlyFirst);
    for (const char* column : Columns) {
        const QByteArray name = QByteArray(column) + "_0";
        const QString before = Field(column, 0).text();
        Type(name, "3");
        EXPECT_EQ(Usable(), "BVCTSO - - - - - -");
        EXPECT_TRUE(Locked());
        Type(name, before);
        EXPECT_TRUE(Released());
        EXPECT_EQ(Usable(), OnlyFirst);
    }
    QWidget other;
    Type("txPOVP_0", "3");
    other.show();
    other.activateWindow();
    EXPECT_TRUE(WaitFor([&] { return Pointer.Within == nullptr; }));
    Main().activateWindow();
    EXPECT_TRUE(WaitFor([&] { return Locked(); }));
    Boxes.Answers = {Answer::Yes};
    Main().close();
    EXPECT_TRUE(WaitFor([&] { return Pointer.Within == nullptr; }));
}

TEST_F(StepRows, TheFunctionKeysOfALockedRowOnlySwitchTheOutputOffAndLeaveRemote) {
    const auto typeAndPressAll = [this](const char* text) {
        Type("txPVOLT_0", text);
        EXPECT_TRUE(Locked());
        for (const auto key : {Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8, Qt::Key_F9})
            QTest::keyClick(&Field("txPVOLT", 0), key);
    };
    typeAndPressAll("3");
    EXPECT_TRUE(Locked() && Sent().empty());
    Leave();
    ASSERT_TRUE(SwitchOutput(true));
    Sent();
    typeAndPressAll("4");
    EXPECT_EQ(Sent(), Only({27, 'A', 0, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(Released());
    Click("cmdPREMOTE");
    ASSERT_TRUE(WaitFor([&] { return Source().TxFrame.size() == 32; }) && Settle());
    typeAndPressAll("5");  // the first of them leaves remote control
    EXPECT_EQ(Sent().back(), Control(1, code::Dc1));
}

TEST_F(StepRows, TabGoesAlongTheRowAndTheNextAndRoundALockedOne) {
    Get<QPushButton>("cmdFOCUS").setFocus();
    EXPECT_EQ(FocusAfter(Qt::Key_Tab), "txPSTEP_0");
    Field("txPVOLT", 0).setFocus();
    for (const char* next : {"txPCURR_0", "txPTIME_0", "txPSLOPE_0", "txPOVP_0", "txPSTEP_1"})
        EXPECT_EQ(FocusAfter(Qt::Key_Tab), next);
    Field("txPSLOPE", 3).setEnabled(true);
    Type("txPSLOPE_3", "3");
    for (const char* next : {"txPOVP_3", "txPSTEP_3", "txPVOLT_3"})
        EXPECT_EQ(FocusAfter(Qt::Key_Tab), next);
    EXPECT_EQ(FocusAfter(Qt::Key_Backtab), "txPSTEP_3");
    EXPECT_EQ(FocusAfter(Qt::Key_Left), "txPOVP_3");
    EXPECT_TRUE(Locked());
}

TEST_F(StepRows, WithTheOutputOnOnlySetPointsOfTheSelectedAndHeldStepsCanBeUsed) {
    Upload(1);
    Upload(2);
    ASSERT_TRUE(SwitchOutput(true));
    EXPECT_EQ(Disabled(),
              "cmdAUTO cmdOCP cmdPVsense lblAutoStep lblCount mnuSET_MANU mnuTEST txtPAUTOCOUNT "
              "txtPAUTOSTEP");
    EXPECT_EQ(Usable(), "B B BVC - - - -");
    Frames();
    ClickStep(1);
    EXPECT_EQ(Sent(), (std::vector<Bytes>{{1, 2, 3, 27, 83, 1, 3, 0x78}}));
    EXPECT_EQ(Usable(), "B BVC B - - - -");
    EXPECT_EQ(Text("txtSTEP"), "01");
    Enter("txPVOLT_1", "4");
    EXPECT_TRUE(Settle() && Source().StepFlag(1));
    Bar().setValue(1);
    EXPECT_EQ(Usable(), "BVCO B - - - - -");
    ASSERT_TRUE(SwitchOutput(false));
    EXPECT_EQ(Usable(), OnlyFirst);
}

TEST_F(StepRows, LocalTakesAwayWhatNeedsARemoteSupply) {
    Bar().setValue(10);
    Click("cmdPREMOTE");
    EXPECT_EQ(Disabled(), "");
    ASSERT_TRUE(WaitFor([&] { return Source().StepFlag(10) && !Source().RxBusy; }));
    EXPECT_EQ(Button(0).accessibleDescription(), "송신됨");  // step 10, which has been started
    Click("cmdPREMOTE");
    EXPECT_EQ(Disabled(),
              "cmdAUTO cmdOCP cmdOUTPUT cmdPVsense fraSTEPLIST lblAutoStep lblCount mnuData_Clear "
              "mnuSET_MANU mnuTEST txtPAUTOCOUNT txtPAUTOSTEP");
    QTest::mouseDClick(&Get<QLabel>("lblORV_URL"), Qt::LeftButton);
    EXPECT_EQ(Browser.Opened, Text("lblORV_URL"));
    Browser.Opened.clear();
    QTest::keyClick(&Get<QLabel>("lblORV_URL"), Qt::Key_Enter);
    EXPECT_EQ(Browser.Opened, Text("lblORV_URL"));
    EXPECT_TRUE(Boxes.Shown.empty());
    Browser.Works = false;
    QTest::keyClick(&Get<QLabel>("lblORV_URL"), Qt::Key_Return);
    EXPECT_EQ(Boxes.LastText(), "웹 브라우저를 열지 못했습니다.\n" + Text("lblORV_URL"));
}

TEST_F(StepRows, AScrolledListShowsItsStepsAndAnOpenEntryKeepsItsOwn) {
    Upload(2);
    Type("txPVOLT_2", "00");
    TurnWheel();
    EXPECT_EQ(Sent(), Only({27, 'V', 0, 0, 0, 0}));
    const int top = Bar().value();
    EXPECT_GT(top, 0);
    EXPECT_EQ(Field("txPCURR", 6).accessibleName(),
              QString("단계 %1 전류 A").arg(top + 6, 2, 10, QChar('0')));
    Bar().setFocus();
    EXPECT_EQ(FocusAfter(Qt::Key_End), "vscAUTOSTEP");
    EXPECT_EQ(Button(6).text() + Button(6).accessibleName(), "99단계 99");
    EXPECT_EQ(Usable(), "B B B B B B B");
    Type("txtPAUTOCOUNT", "50001");
    TurnWheel();
    EXPECT_EQ(FocusAfter(Qt::Key_0), "txtPAUTOCOUNT");
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(Bar().value(), 93);
}

TEST_F(StepRows, EachRowTellsWhatItsStepIsWhateverChangesIt) {
    const auto states = [this] {
        QString all;
        for (int row = 0; row < RowCount; ++row) all += Button(row).accessibleDescription()[0];
        return all;
    };
    ClickStep(1);
    ASSERT_TRUE(Settle());
    EXPECT_EQ(states(), "송선미미미미미");
    Bar().setValue(1);
    EXPECT_EQ(states(), "선미미미미미미");
    Bar().setValue(0);
    Line().SetFaults({.Silent = true});
    ClickStep(2);
    ClickStep(3);  // step 2 was not answered
    EXPECT_EQ(states(), "송송미선미미미");
    auto& field = Get<EntryField>("txPVOLT_3");
    ASSERT_TRUE(WaitFor([&] { return field.Refused(); }));
    Line().SetFaults({});
    Frames();
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);  // the supply may still be at another step
    EXPECT_EQ(Sent(), Only({27, 'S', 3, 27, 'V', 0, 0}));
    EXPECT_FALSE(field.Refused());
}

TEST_F(StepRows, AClickSendsTheWholeRowOnceAndShowsItsValues) {
    const int s = 5;
    Source().StoreStep(StepValue::Volt, s, "12.50");
    Source().StoreStep(StepValue::Curr, s, "1.000");
    Source().StoreStep(StepValue::Time, s, "1.50000");
    Source().StoreStep(StepValue::Slope, s, "0.10000");
    Source().StoreStep(StepValue::Ovp, s, "218.0");
    Bar().setValue(1);
    ClickStep(4);
    EXPECT_EQ(Sent(), Only({27, 'S', 5,    27, 'V', 4,   0xE2, 27,   'C', 3,  0xE8, 27,   'T', 0,
                            1,  1,   0xF4, 0,  27,  'D', 0,    0x64, 0,   27, 'O',  0x55, 0x28}));
    EXPECT_TRUE(Source().StepFlag(s));
    EXPECT_EQ(Get<QLineEdit>("txtVOLT").text() + Get<QLineEdit>("txtCURR").text(), "12.501.000");
    EXPECT_EQ(Text("txtSTEP") + Field("txPTIME", 4).text() + Field("txPSLOPE", 4).text(),
              "051.500000.10000");
    EXPECT_TRUE(Released());
    ClickStep(4);
    EXPECT_TRUE(Sent().empty());
    EXPECT_EQ(Main().focusWidget()->objectName(), "cmdFOCUS");
}

// How far the text in a control stands out from what is behind it, in shades of grey.
int Contrast(const QImage& picture) {
    int darkest = 255;
    int lightest = 0;
    for (int x = 4; x < picture.width() - 4; ++x) {
        for (int y = 4; y < picture.height() - 4; ++y) {
            const int here = qGray(picture.pixel(x, y));
            darkest = std::min(darkest, here);
            lightest = std::max(lightest, here);
        }
    }
    return lightest - darkest;
}

TEST_F(StepRows, RowsTellSelectedAndHeldStepsApartWithReadableTextOnEveryDesktop) {
    const QPalette usual = QApplication::palette();
    Upload(1);
    for (const auto& [face, bright] : {std::pair{"#efefef", "#fffff0"}, {"#2b2b2b", "#000020"}}) {
        QPalette desktop{QColor(face)};
        desktop.setColor(QPalette::HighlightedText, bright);
        QApplication::setPalette(desktop);
        Source().PaintStepRows(1);
        const std::pair<QColor, QColor> colours[]{
            {"#80ffff", "#80ffff"}, {"#ffe0c0", "#ffe0c0"}, {face, bright}};
        for (int place = 0; place < 3 * 5 * 2; ++place) {
            const int row = place % 3;
            Button(row).setEnabled(place < 15);
            auto& field = Field(Columns[place % 5], row);
            field.setEnabled(place < 15);
            const QImage picture = field.grab().toImage();
            EXPECT_EQ(picture.pixelColor(5, picture.height() / 2), colours[row].second);
            EXPECT_GE(Contrast(picture), 125) << place << face;
            const QImage button = Button(row).grab().toImage();
            EXPECT_EQ(button.pixelColor(5, 5), colours[row].first);
            EXPECT_EQ(button.pixelColor(5, button.height() - 6), colours[row].first);
            EXPECT_GE(Contrast(button), 125) << place << face;
        }
    }
    QApplication::setPalette(usual);
}

TEST_F(StepRows, ASupplyOfUnknownRatingsGetsNoSetPoints) {
    Source().Forget();
    const std::function<void()> ways[]{[&] { Enter("txPTIME_0", "1"); }, [&] { ClickStep(1); }};
    for (const auto& way : ways) {
        Boxes.Shown.clear();
        way();
        EXPECT_EQ(Boxes.Shown.size(), 1U);
        EXPECT_TRUE(Boxes.LastText().contains("설정 > ZPS설정 > DATA 확인"));
    }
    EXPECT_EQ(Field("txPTIME", 0).text(), "0.00000");
    EXPECT_TRUE(Released());
    EXPECT_TRUE(Sent().empty());
    EXPECT_EQ(Text("txtSTEP"), "00");
}

}  // namespace
}  // namespace zps::tests
