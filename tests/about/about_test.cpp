#include "about/about.h"

#include "tests/support/panel.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QSysInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

using Tool = platform::SystemInformationTool;

struct Box {
    explicit Box(const Tool& tool) : About(nullptr, tool, Boxes) {
        About.show();
        QTest::mouseClick(&Button, Qt::LeftButton);
    }
    ScriptedBoxes Boxes;
    frmAbout About;
    QPushButton& Button = *About.findChild<QPushButton*>("cmdSysInfo");
};

TEST(AboutBox, StartsTheSystemsTool) {
    const QTemporaryDir folder;
    const QString made = folder.filePath("made by the tool");
    const bool onWindows = QSysInfo::kernelType() == "winnt";
    const Box box(onWindows ? Tool{"cmd.exe", {"/c", "mkdir", QDir::toNativeSeparators(made)}}
                            : Tool{"/bin/mkdir", {made}});
    EXPECT_TRUE(WaitFor([&] { return QFile::exists(made); }));
    EXPECT_TRUE(box.Boxes.Shown.empty() && box.Button.isEnabled());
}

TEST(AboutBox, DisablesTheButtonWithAReasonWhereNoToolIsOrItWontStart) {
    const Box without({});
    EXPECT_TRUE(without.Boxes.Shown.empty());
    EXPECT_EQ(without.Button.toolTip(), "이 컴퓨터에는 시스템 정보 프로그램이 없습니다.");
    const Box gone({"/zps-absent", {}});
    EXPECT_EQ(gone.Boxes.LastText(), "시스템 정보 프로그램을 실행하지 못했습니다.");
    EXPECT_EQ(gone.Button.toolTip(), gone.Boxes.LastText());
    EXPECT_FALSE(without.Button.isEnabled() || gone.Button.isEnabled());
}

}  // namespace
}  // namespace zps::tests
