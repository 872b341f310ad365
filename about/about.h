// frmAbout, the box that tells what this program is.
#pragma once

#include "platform/system_information.h"

#include <QDialog>

namespace zps {

class frmAbout : public QDialog {
  public:
    // `tool` is what the button for the system's information starts; without one it is disabled.
    frmAbout(QWidget* parent, const platform::SystemInformationTool& tool);
};

}  // namespace zps
