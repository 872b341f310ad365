#include "platform/system_information.h"

#include <QProcess>

namespace zps::platform {

bool Start(const SystemInformationTool& tool) {
    return !tool.Program.isEmpty() && QProcess::startDetached(tool.Program, tool.Words);
}

}  // namespace zps::platform
