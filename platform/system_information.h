// The system's own tool that tells about the machine.
#pragma once

#include <QString>
#include <QStringList>

namespace zps::platform {

// A program and the words it is started with; no program where the system has none.
struct SystemInformationTool {
    QString Program;
    QStringList Words;
};

// Looks for the tool: on Windows in the registry, elsewhere among the desktop's programs. Window
// thread only.
SystemInformationTool FindSystemInformationTool();

// Starts it beside this program. False if that failed.
bool Start(const SystemInformationTool& tool);

}  // namespace zps::platform
