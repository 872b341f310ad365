#include "controls/colours.h"
#include "controls/read_out.h"
#include "controls/shortcuts.h"
#include "controls/widgets.h"
#include "test/test_controls.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <array>

namespace zps {

namespace {

constexpr int PanelCount = 64;
constexpr int PanelsPerLine = 10;
constexpr int PanelLinesInView = 2;
constexpr int LastingPanels = PanelsPerLine * PanelLinesInView;
constexpr std::array LampCaptions{"Protect", "Vsense", "OUTPUT",  "AUTO",
                                  "MODE",    "OCP",    "REM/LOC", "REM ON/OFF"};

QLabel* MakeBordered(const QString& name, const QString& text, const QString& accessible) {
    auto* label = MakeLabel(name, text, accessible);
    label->setAlignment(Qt::AlignCenter);
    label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    return label;
}

// A number, or a text in its place, in a box with room for `widest`.
QLabel* MakeNumber(const QString& name, const QString& text, const QString& accessible,
                   const QString& widest) {
    auto* number = MakeBordered(name, text, accessible);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setIndent(4);
    number->setMinimumWidth(WidthFor(*number, widest));
    return number;
}

// A titled number, one above the other.
QLabel* AddTitled(QGridLayout& grid, int column, const QString& titleName, const QString& title,
                  const QString& name, const QString& accessible) {
    auto* number = MakeNumber(name, QStringLiteral("0"), accessible, QStringLiteral("000"));
    auto* heading = MakeLabel(titleName, title);
    heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    heading->setIndent(number->indent() + number->frameWidth());
    grid.addWidget(heading, 0, column);
    grid.addWidget(number, 1, column);
    return number;
}

QWidget* MakeTarget(TestControls& controls) {
    auto* box = new QGroupBox(QStringLiteral("POWER CHECK"));
    box->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new QGridLayout(box);
    controls.txtPADDR = new QLineEdit(QStringLiteral("1"));
    controls.txtPADDR->setObjectName(QStringLiteral("txtPADDR"));
    controls.txtPADDR->setAccessibleName(QStringLiteral("전원 장치 주소"));
    controls.txtPADDR->setAttribute(Qt::WA_InputMethodEnabled, false);
    controls.txtPADDR->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    controls.txtPCOMMPORT = new ReadOut(QStringLiteral("txtPCOMMPORT"), QStringLiteral("1"),
                                        QStringLiteral("통신 포트"));
    controls.txtPCOMMPORT->setEnabled(false);
    PaintBackground(*controls.txtPCOMMPORT, Colour::LightGrey);
    controls.cmdENQ = MakeButton(QStringLiteral("cmdENQ"), QStringLiteral("ENQ"));
    controls.cmdDLE = MakeButton(QStringLiteral("cmdDLE"), QStringLiteral("DLE"));
    GiveKey(*controls.cmdENQ, Qt::Key_F2, QStringLiteral("전원 장치가 응답하는지 확인"));
    GiveKey(*controls.cmdDLE, Qt::Key_F3, QStringLiteral("상태와 측정값 읽기"));
    PaintBackground(*controls.cmdDLE, Colour::LightCyan);
    grid->addWidget(MakeLabel(QStringLiteral("Label10_3"), QStringLiteral("ADDRESS")), 0, 0);
    grid->addWidget(controls.txtPADDR, 0, 1);
    grid->addWidget(MakeLabel(QStringLiteral("Label10_2"), QStringLiteral("Port no.")), 1, 0);
    grid->addWidget(controls.txtPCOMMPORT, 1, 1);
    grid->addWidget(controls.cmdENQ, 2, 0);
    grid->addWidget(controls.cmdDLE, 2, 1);
    return box;
}

QWidget* MakeHeader(TestControls& controls) {
    constexpr std::array headings{"ADDR", "STX", "L I"};
    controls.frmDATA = new QGroupBox(QStringLiteral("RX DATA"));
    controls.frmDATA->setObjectName(QStringLiteral("frmDATA"));
    auto* column = new QVBoxLayout(controls.frmDATA);
    controls.lblRESULT = MakeBordered(QStringLiteral("lblRESULT"), QStringLiteral("G O O D"),
                                      QStringLiteral("판정"));
    Enlarge(*controls.lblRESULT, 1.6);
    controls.lblRESULT->setMinimumWidth(
        WidthFor(*controls.lblRESULT, QStringLiteral("ERROR  Nothing")));
    PaintBackground(*controls.lblRESULT, Colour::LightGreen);
    auto* grid = new QGridLayout;
    for (std::size_t i = 0; i < headings.size(); ++i) {
        const QString heading = QString::fromUtf8(headings.at(i));
        controls.lblRXDATA.at(i) =
            AddTitled(*grid, static_cast<int>(i), QStringLiteral("Label12_%1").arg(i + 1), heading,
                      QStringLiteral("lblRXDATA_%1").arg(i), heading);
    }
    controls.lblRXBUFFER =
        AddTitled(*grid, static_cast<int>(headings.size()), QStringLiteral("Label12_0"),
                  QStringLiteral("DATA(byte)"), QStringLiteral("lblRXBUFFER"),
                  QStringLiteral("수신 바이트 수"));
    column->addWidget(controls.lblRESULT);
    column->addLayout(grid);
    return controls.frmDATA;
}

struct DecodedField {
    QLabel* TestControls::*Value;
    const char* Name;
    const char* Text;
    const char* TitleName;
    const char* Title;
};
constexpr std::array DecodedFields{
    DecodedField{&TestControls::lblSTATUS, "lblSTATUS", "STATUS", "Label11_9", "SUB STATUS"},
    DecodedField{&TestControls::lblERROR, "lblERROR", "ERROR", "Label11_8", "ERROR DATA"},
    DecodedField{&TestControls::lblSTEP, "lblSTEP", "STEP", "Label11_5", "RX STEP"},
    DecodedField{&TestControls::lblVOLTAGE, "lblVOLTAGE", "VOLTAGE", "Label11_7", "POWER VOLT"},
    DecodedField{&TestControls::lblOVP, "lblOVP", "OVP", "Label11_0", "OVP SET"},
    DecodedField{&TestControls::lblCURRENT, "lblCURRENT", "CURRENT", "Label11_6", "POWER CURR"},
};
constexpr int DecodedPerLine = 2;

QLayout* MakeDecoded(TestControls& controls) {
    auto* grid = new QGridLayout;
    grid->addWidget(MakeLabel(QStringLiteral("Label1"), QStringLiteral("DISPLAY")), 0, 0);
    int place = 0;
    for (const auto& field : DecodedFields) {
        const QString title = QString::fromUtf8(field.Title);
        const bool wide = field.Value == &TestControls::lblERROR;
        auto* value =
            MakeNumber(QString::fromUtf8(field.Name), QString::fromUtf8(field.Text), title,
                       wide ? QStringLiteral("OUT OFF ERROR CURRENT") : QStringLiteral("VOLTAGE"));
        controls.*field.Value = value;
        auto* heading = MakeLabel(QString::fromUtf8(field.TitleName), title);
        heading->setContentsMargins(16, 0, 0, 0);
        const int row = place / DecodedPerLine;
        const int column = 1 + 2 * (place++ % DecodedPerLine);
        grid->addWidget(heading, row, column);
        grid->addWidget(value, row, column + 1);
        grid->setColumnStretch(column + 1, 1);
    }
    return grid;
}

QLayout* MakeLamps(TestControls& controls) {
    auto* row = new QHBoxLayout;
    for (std::size_t bit = 0; bit < LampCaptions.size(); ++bit) {
        const QString caption = QString::fromUtf8(LampCaptions.at(bit));
        auto* lamp = MakeBordered(QStringLiteral("ledSTATUS_%1").arg(bit), caption, caption);
        lamp->setMargin(3);
        lamp->setMinimumWidth(WidthFor(*lamp, caption));
        PaintBackground(*lamp, Colour::White);
        controls.ledSTATUS.at(bit) = lamp;
        row->addWidget(lamp, 1);
    }
    return row;
}

// The lines of panels in an area that scrolls, so that a long reply leaves the window as it is.
QWidget* MakePanels(TestControls& controls) {
    auto* panels = new NumberPanels(QStringLiteral("StatusBar_RXDATA"), PanelCount, PanelsPerLine,
                                    LastingPanels);
    controls.StatusBar_RXDATA = panels;
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    area->setAccessibleName(QStringLiteral("수신 데이타 보기"));
    area->verticalScrollBar()->setAccessibleName(QStringLiteral("수신 데이타 이동"));
    const QSize view = panels->SizeOf(PanelLinesInView);
    area->setFixedHeight(view.height());
    area->setMinimumWidth(view.width() + area->verticalScrollBar()->sizeHint().width());
    area->setWidget(panels);
    return area;
}

QWidget* MakeMonitor(TestControls& controls) {
    auto* box = new QGroupBox(QStringLiteral("POWER RX DATA CHECK 및 MONITOR"));
    box->setObjectName(QStringLiteral("frmTXRXDATA"));
    auto* column = new QVBoxLayout(box);
    column->addWidget(MakePanels(controls));
    column->addLayout(MakeDecoded(controls));
    column->addLayout(MakeLamps(controls));
    return box;
}

}  // namespace

TestControls MakeTestControls(QWidget& window) {
    TestControls controls;
    auto* column = new QVBoxLayout(&window);
    auto* top = new QHBoxLayout;
    top->addWidget(MakeTarget(controls));
    top->addWidget(MakeHeader(controls), 1);
    column->addLayout(top);
    column->addWidget(MakeMonitor(controls));
    return controls;
}

}  // namespace zps
