// The rows of the step list: which can be used, what they show, and what a click on one sends.
#include "controls/colours.h"
#include "controls/entry_field.h"
#include "tests/power/run_panel.h"

#include <QPalette>
#include <QRegularExpression>
#include <QScrollArea>
#include <QWheelEvent>

namespace zps::tests {
namespace {

const char* const Columns[]{"txPVOLT", "txPCURR", "txPTIME", "txPSLOPE", "txPOVP"};
const QString OnlyFirst = "BVCTSO B B B B B B";

struct StepRows : StepTest {
    QString FocusAfter(Qt::Key key) {
        QTest::keyClick(Main().focusWidget(), key);
        return Main().focusWidget()->objectName();
    }
    // By how many steps a turn of the wheel scrolls the list.
    int Turn(const char* over, int notches) {
        const int before = Bar().value();
        auto& control = Get<QWidget>(over);
        const QPointF place = control.rect().center();
        QWheelEvent turn(place, control.mapToGlobal(place), {}, {0, -120 * notches}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&turn);  // only such a one is passed on to parents
        qApp->notify(&control, &turn);
        return Bar().value() - before;
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
    for (const char* column : Columns) {
        const QByteArray name = QByteArray(column) + "_0";
        const QString before = InRow(0, column).text();
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

TEST_F(StepRows, TabGoesAlongTheRowAndTheNextAndRoundALockedOne) {
    Get<QPushButton>("cmdFOCUS").setFocus();
    for (const char* next : {"txPSTEP_0", "txPVOLT_0", "txPCURR_0", "txPTIME_0", "txPSLOPE_0",
                             "txPOVP_0", "txPSTEP_1"})
        EXPECT_EQ(FocusAfter(Qt::Key_Tab), next);
    InRow(3, "txPSLOPE").setEnabled(true);
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
    ASSERT_TRUE(SwitchOn());
    EXPECT_EQ(Disabled(),
              "cmdAUTO cmdOCP cmdPVsense lblAutoStep lblCount mnuSET_MANU mnuTEST txtPAUTOCOUNT "
              "txtPAUTOSTEP");
    EXPECT_EQ(Usable(), "B B BVC - - - -");
    Frames();
    EXPECT_EQ(Upload(1), (std::vector<Bytes>{{1, 2, 3, 27, 83, 1, 3, 0x78}}));
    EXPECT_EQ(Usable(), "B BVC B - - - -");
    Bar().setValue(1);
    EXPECT_EQ(Usable(), "BVCO B - - - - -");
    ASSERT_TRUE(Press("cmdOUTPUT"));
    EXPECT_EQ(Usable(), OnlyFirst);
    ASSERT_TRUE(SwitchOn());
    EXPECT_EQ(Usable(), "BVC B - - - - -");  // the O.V.P. only until the output goes off
}

TEST_F(StepRows, LocalTakesAwayWhatNeedsARemoteSupply) {
    Bar().setValue(10);
    Click("cmdPREMOTE");
    EXPECT_EQ(Disabled(), "");
    ASSERT_TRUE(WaitFor([&] { return Source().StepFlag(10) && !Source().RxBusy(); }));
    EXPECT_EQ(StepButton(0).accessibleDescription(), "송신됨");  // step 10, which has been started
    Click("cmdPREMOTE");
    EXPECT_EQ(Disabled(),
              "cmdAUTO cmdOCP cmdOUTPUT cmdPVsense fraSTEPLIST lblAutoStep lblCount mnuData_Clear "
              "mnuSET_MANU mnuTEST txtPAUTOCOUNT txtPAUTOSTEP");
    auto& address = Get<QLabel>("lblORV_URL");
    QTest::mouseDClick(&address, Qt::LeftButton);
    EXPECT_EQ(std::exchange(Browser.Opened, {}), address.text());
    Browser.Works = false;
    QTest::keyClick(&address, Qt::Key_Return);
    EXPECT_EQ(Browser.Opened, address.text());
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(Boxes.LastText(), "웹 브라우저를 열지 못했습니다.\n" + address.text());
}

TEST_F(StepRows, TheWheelScrollsAnywhereOverTheRowsAndAnOpenEntryKeepsItsStep) {
    Upload(2);
    Type("txPVOLT_2", "00");
    for (const char* over : {"vscAUTOSTEP", "fraSTEPLIST", "txPSTEP_2", "txPVOLT_0", "txPOVP_6"})
        EXPECT_GT(Turn(over, 1), 0) << over;
    EXPECT_EQ(Frames(), Only({27, 'V', 0, 0, 0, 0}));
    EXPECT_EQ(InRow(6, "txPCURR").accessibleName(),
              QString("단계 %1 전류 A").arg(Bar().value() + 6, 2, 10, QChar('0')));
    Bar().setFocus();
    EXPECT_EQ(FocusAfter(Qt::Key_End), "vscAUTOSTEP");
    EXPECT_EQ(StepButton(6).text() + StepButton(6).accessibleName(), "99단계 99");
    EXPECT_EQ(Usable(), "B B B B B B B");
    Type("txtPAUTOCOUNT", "50001");
    EXPECT_EQ(Turn("txPTIME_3", -1), 0);
    QTest::keyClick(Main().focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    Bar().setValue(2);
    Main().resize(700, 400);
    auto& view = *Main().findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_TRUE(WaitFor([&] { return view.maximum() > 0 && Main().isActiveWindow(); }));
    Type("txPVOLT_0", "3");
    const int place = view.value();
    for (const char* over : {"vscAUTOSTEP", "fraSTEPLIST", "txPVOLT_0", "txPVOLT_1"})
        EXPECT_EQ(Turn(over, 1) + view.value(), place) << over;
    EXPECT_TRUE(Locked() && Frames().empty());
}

TEST_F(StepRows, EachRowTellsWhatItsStepIsWhateverChangesIt) {
    const auto states = [this] {
        QString all;
        for (int row = 0; row < RowCount; ++row) all += StepButton(row).accessibleDescription()[0];
        return all;
    };
    Upload(1);
    EXPECT_EQ(states(), "송선미미미미미");
    Bar().setValue(1);
    EXPECT_EQ(states(), "선미미미미미미");
    Bar().setValue(0);
    for (int frame = 0; frame < 2; ++frame) Line().Answer({});
    Click("txPSTEP_2");
    Click("txPSTEP_3");  // step 2 was not answered
    EXPECT_EQ(states(), "송송미선미미미");
    auto& field = Get<EntryField>("txPVOLT_3");
    ASSERT_TRUE(WaitFor([&] { return field.Refused(); }));
    Line().ForgetWritten();
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);  // the supply may still be at another step
    EXPECT_EQ(Frames(), Only({27, 'S', 3, 27, 'V', 0, 0}));
    EXPECT_FALSE(field.Refused());
}

TEST_F(StepRows, TellWhatAFieldTakesWhichButtonMakesItUsableAndHowAnEditEnds) {
    const auto& editing = Get<QLabel>("lblEDITING");
    const auto& legend = Get<QWidget>("fraSTEPLEGEND");
    const QSize before = legend.size();
    EXPECT_EQ(InRow(0, "txPVOLT").toolTip() + "|" + InRow(0, "txPSLOPE").toolTip() + "|" +
                  InRow(1, "txPVOLT").toolTip() + "|" + Text("lblSTEPRANGE"),
              "0 ~ 150 V|0, 0.001 ~ 50 sec|단계 번호를 눌러 선택하십시오|00\u201306 / 99");
    const auto isPlain = [&button = StepButton(1)] {
        return button.grab().toImage().pixelColor(5, 5) ==
               QApplication::palette().color(QPalette::Button);
    };
    EXPECT_TRUE(isPlain());
    QTest::mouseClick(&InRow(1, "txPVOLT"), Qt::LeftButton);
    EXPECT_FALSE(isPlain());
    EXPECT_TRUE(WaitFor(isPlain, 2s));
    Type("txPVOLT_0", "3");
    EXPECT_TRUE(editing.isVisible() && legend.size() == before);
    EXPECT_EQ(StepButton(0).accessibleDescription(), "선택됨, 바뀐 값을 보내지 않음");
    QTest::mouseClick(&InRow(1, "txPVOLT"), Qt::LeftButton);
    EXPECT_TRUE(isPlain());  // no click on the button would help
    QTest::keyClick(&InRow(0, "txPVOLT"), Qt::Key_Escape);
    EXPECT_FALSE(editing.isVisible());
    EXPECT_EQ(StepButton(0).accessibleDescription(), "선택됨, 송신됨");
    ASSERT_TRUE(SwitchOn());
    EXPECT_TRUE(
        WaitFor([&] { return StepButton(3).accessibleDescription() == "미송신, 실행 중"; }));
    ASSERT_TRUE(Press("cmdOUTPUT"));
    EXPECT_EQ(StepButton(0).accessibleDescription(), "선택됨, 송신됨");
    Source().Forget();
    Source().PaintStepRows(0);
    EXPECT_TRUE(InRow(1, "txPVOLT").toolTip().contains("정격을 모릅니다"));
}

TEST_F(StepRows, AClickSendsTheWholeRowOnceAndShowsItsValues) {
    const Figure values[]{
        {12.5, "12.50"}, {1, "1.000"}, {1.5, "1.50000"}, {0.1, "0.10000"}, {218, "218.0"}};
    for (std::size_t kind = 0; kind < std::size(values); ++kind)
        Source().StoreStep(static_cast<StepValue>(kind), 5, values[kind]);
    Bar().setValue(1);
    EXPECT_EQ(Upload(4),
              Only({27, 'S', 5,    27, 'V', 4,   0xE2, 27,   'C', 3,  0xE8, 27,   'T', 0,
                    1,  1,   0xF4, 0,  27,  'D', 0,    0x64, 0,   27, 'O',  0x55, 0x28}));
    EXPECT_TRUE(Source().StepFlag(5) && Released());
    EXPECT_EQ(Get<QLineEdit>("txtVOLT").text() + Get<QLineEdit>("txtCURR").text(), "12.501.000");
    EXPECT_EQ(Text("txtSTEP") + InRow(4, "txPTIME").text() + InRow(4, "txPSLOPE").text(),
              "051.500000.10000");
    EXPECT_TRUE(Upload(4).empty());
    EXPECT_EQ(Main().focusWidget()->objectName(), "cmdFOCUS");
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
            const auto& [ofButton, ofField] = colours[place % 3];
            for (const auto& [control, back, front] :
                 {std::tuple<QWidget*, QColor, QPalette::ColorRole>{&StepButton(place % 3),
                                                                    ofButton, QPalette::ButtonText},
                  {&InRow(place % 3, Columns[place % 5]), ofField, QPalette::Text}}) {
                control->setEnabled(place < 15);
                const QImage picture = control->grab().toImage();
                EXPECT_EQ(picture.pixelColor(5, picture.height() - 6), back);
                EXPECT_GE(Contrast(back, control->palette().color(front)), 3.9);
            }
        }
    }
    QApplication::setPalette(usual);
}

}  // namespace
}  // namespace zps::tests
