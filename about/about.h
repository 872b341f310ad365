// frmAbout, the box that tells what this program is.
#pragma once

#include "controls/message_boxes.h"
#include "platform/system_information.h"

#include <QDialog>

namespace zps {

class frmAbout : public QDialog {
  public:
    // `tool` is what the button for the system's information starts. Without one the button is
    // disabled, and so it is from a start on that failed, which `boxes` tells.
    frmAbout(QWidget* parent, const platform::SystemInformationTool& tool, MessageBoxes& boxes);
};

}  // namespace zps
