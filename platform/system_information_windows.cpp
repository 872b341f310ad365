#include "platform/system_information.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace zps::platform {

SystemInformationTool FindSystemInformationTool() {
    const QSettings tools(
        QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
        QSettings::NativeFormat);
    const QString program = tools.value(QStringLiteral("PATH")).toString();
    if (QFileInfo::exists(program)) return {program, {}};
    // Newer systems keep the folder under another name.
    const QSettings location(
        QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location"),
        QSettings::NativeFormat);
    const QString inFolder =
        location.value(QStringLiteral("MSINFO")).toString() + QStringLiteral("\\MSINFO32.EXE");
    if (QFileInfo::exists(inFolder)) return {inFolder, {}};
    return {QStandardPaths::findExecutable(QStringLiteral("msinfo32")), {}};
}

}  // namespace zps::platform
