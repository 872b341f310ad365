#include "platform/system_information.h"

#include <QStandardPaths>

namespace zps::platform {

SystemInformationTool FindSystemInformationTool() {
    const SystemInformationTool known[] = {
        {QStringLiteral("kinfocenter"), {}},
        {QStringLiteral("gnome-control-center"), {QStringLiteral("info-overview")}},
        {QStringLiteral("hardinfo"), {}},
        {QStringLiteral("hardinfo2"), {}},
    };
    for (const auto& tool : known) {
        const QString program = QStandardPaths::findExecutable(tool.Program);
        if (!program.isEmpty()) return {program, tool.Words};
    }
    return {};
}

}  // namespace zps::platform
