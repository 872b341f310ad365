#include "about/about.h"

#include "controls/widgets.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QPushButton>

namespace zps {

frmAbout::frmAbout(QWidget* parent, const platform::SystemInformationTool& tool,
                   MessageBoxes& boxes)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("ZPS-RS232 정보"));
    auto* title = MakeLabel(QStringLiteral("lblTitle"), QStringLiteral("ZPS-RS232"));
    Enlarge(*title, 1.8);
    auto* version =
        MakeLabel(QStringLiteral("lblVersion"),
                  QStringLiteral("버전 %1").arg(QCoreApplication::applicationVersion()));
    auto* purpose = MakeLabel(QStringLiteral("lblDescription"),
                              QStringLiteral("RS-232 프로그래머블 직류 전원 장치 제어 프로그램"));
    auto* licence = MakeLabel(QStringLiteral("lblLicense"),
                              QStringLiteral("이 프로그램은 GNU 일반 공중 사용 허가서(GPL)\n"
                                             "제3판 또는 그 이후 판에 따라 배포되는 자유\n"
                                             "소프트웨어이며, 어떠한 보증도 하지 않습니다."));
    auto* buttons = new QDialogButtonBox;
    auto* cmdSysInfo =
        buttons->addButton(QStringLiteral("시스템 정보(&S)..."), QDialogButtonBox::ActionRole);
    cmdSysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    cmdSysInfo->setEnabled(!tool.Program.isEmpty());
    if (tool.Program.isEmpty()) {
        cmdSysInfo->setToolTip(QStringLiteral("이 컴퓨터에는 시스템 정보 프로그램이 없습니다."));
    }
    connect(cmdSysInfo, &QPushButton::clicked, this, [this, tool, cmdSysInfo, &boxes] {
        if (platform::Start(tool)) return;
        const auto failed = QStringLiteral("시스템 정보 프로그램을 실행하지 못했습니다.");
        cmdSysInfo->setEnabled(false);
        cmdSysInfo->setToolTip(failed);
        boxes.Show(this, {MessageIcon::Critical, QStringLiteral("시스템 정보"), failed});
    });
    buttons->addButton(QStringLiteral("확인(&O)"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::close);
    auto* icon = MakeLabel(QStringLiteral("picIcon"), {}, QStringLiteral("프로그램 아이콘"));
    icon->setPixmap(windowIcon().pixmap(QSize(48, 48), devicePixelRatio()));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(20, 20, 20, 16);
    grid->setHorizontalSpacing(20);
    grid->setVerticalSpacing(12);
    grid->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
    int row = 0;
    for (QWidget* part : {title, version, purpose, licence}) grid->addWidget(part, row++, 1);
    grid->addWidget(buttons, row, 0, 1, 2);
}

}  // namespace zps
