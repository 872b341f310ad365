#include "controls/colours.h"
#include "controls/flowing_row.h"
#include "controls/number_face.h"
#include "controls/shortcuts.h"
#include "controls/show_only.h"
#include "controls/widgets.h"
#include "test/test_controls.h"

#include <QGridLayout>
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
constexpr int HeaderBytes = 3;
constexpr double VerdictSize = 2.4;  // times the desktop's text
constexpr int VerdictHeight = 40;

// A number in a box with room for three digits.
QLabel* MakeNumber(const QString& name, const QString& accessible) {
    auto* number = MakeLabel(name, QStringLiteral("0"), accessible);
    SetNumberFace(*number);
    number->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setIndent(4);
    number->setMinimumWidth(WidthFor(*number, QStringLiteral("000")));
    return number;
}

// A titled number, one above the other.
QLabel* AddTitled(QGridLayout& grid, int column, const QString& titleName, const QString& title,
                  const QString& name, const QString& accessible) {
    auto* number = MakeNumber(name, accessible);
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
    controls.txtPADDR->setAccessibleName(QStringLiteral("ADDRESS 전원 장치 주소"));
    controls.txtPADDR->setAttribute(Qt::WA_InputMethodEnabled, false);
    controls.txtPADDR->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    controls.txtPCOMMPORT = new ReadOut(QStringLiteral("txtPCOMMPORT"), QStringLiteral("1"),
                                        QStringLiteral("Port no. 통신 포트"));
    ShowOnly(*controls.txtPCOMMPORT);
    for (QLineEdit* field : {controls.txtPADDR, static_cast<QLineEdit*>(controls.txtPCOMMPORT)})
        SetNumberFace(*field);
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
    controls.lblRESULT = new SignLabel(QStringLiteral("lblRESULT"), QStringLiteral("G O O D"),
                                       QStringLiteral("판정"));
    Enlarge(*controls.lblRESULT, VerdictSize);
    controls.lblRESULT->setAlignment(Qt::AlignCenter);
    controls.lblRESULT->setMinimumSize(
        WidthFor(*controls.lblRESULT, QStringLiteral("ERROR  Nothing")) +
            controls.lblRESULT->contentsMargins().left(),
        VerdictHeight);
    PaintBackground(*controls.lblRESULT, Colour::LightGreen);
    controls.lblSTAMP = MakeLabel(QStringLiteral("lblSTAMP"), QStringLiteral("아직 보내지 않음"),
                                  QStringLiteral("판정 시각"));
    controls.lblSTAMP->setToolTip(
        QStringLiteral("판정한 시각, 받은 바이트 수, 보낸 뒤 첫 바이트가 올 때까지 걸린 시간"));
    controls.lblSTAMP->setAlignment(Qt::AlignCenter);
    SetNumberFace(*controls.lblSTAMP);
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
    column->addWidget(controls.lblRESULT, 1);
    column->addWidget(controls.lblSTAMP);
    column->addLayout(grid);
    return controls.frmDATA;
}

// The lines of panels in an area that scrolls, so that a long reply leaves the window as it is.
QWidget* MakePanels(TestControls& controls) {
    auto* panels = new NumberPanels(QStringLiteral("StatusBar_RXDATA"), PanelCount, PanelsPerLine,
                                    LastingPanels);
    controls.StatusBar_RXDATA = panels;
    QStringList numbers;
    for (int number = 1; number <= PanelCount; ++number) numbers << QString::number(number);
    panels->SetCaptions({numbers});
    panels->Tint(HeaderBytes);
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    area->setAccessibleName(QStringLiteral("수신 데이터 보기"));
    area->verticalScrollBar()->setAccessibleName(QStringLiteral("수신 데이터 이동"));
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
    controls.Fields = new ReplyFields;
    controls.Lamps = new BitLamps;
    column->addWidget(controls.Fields);
    column->addWidget(controls.Lamps);
    return box;
}

}  // namespace

TestControls MakeTestControls(QWidget& window) {
    TestControls controls;
    auto* column = new QVBoxLayout(&window);
    auto* top = new FlowingRow(QBoxLayout::TopToBottom);
    top->Add(*MakeTarget(controls), 0);
    top->Add(*MakeHeader(controls), 1);
    column->addWidget(top);
    column->addWidget(MakeMonitor(controls));
    return controls;
}

}  // namespace zps
