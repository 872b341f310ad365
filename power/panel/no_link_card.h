// What stands in the main window in place of the panels while no supply is identified.
#pragma once

#include "source/reply.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

namespace zps {

class NoLinkCard : public QWidget {
  public:
    // Hidden.
    explicit NoLinkCard(const QString& name);

    // The check ended with `result`; `portTrouble` is why the port can't be used, or empty.
    void Explain(Reply result, const QString& portTrouble);
    // The check has not come to an end.
    void ExplainUnchecked();

    QPushButton* cmdSET_MANU;  // opens the settings window

  private:
    QLabel* lblCAUSE;
};

}  // namespace zps
