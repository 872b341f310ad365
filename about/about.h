// frmAbout, the box that tells what this program is.
#pragma once

#include <QDialog>

namespace zps {

class frmAbout : public QDialog {
  public:
    explicit frmAbout(QWidget* parent);
};

}  // namespace zps
