// Shows how far the sending of steps has come, with a button that ends it.
#pragma once

#include "power/steps/send_all.h"

#include <QPointer>
#include <QProgressDialog>

namespace zps {

class SendBox {
  public:
    SendBox(QWidget& window, std::function<void()> cancel)
        : Window(window), Cancel(std::move(cancel)) {}

    void Show(const SendAll::Report& report);
    void Close();

  private:
    void Open(int steps);

    QWidget& Window;
    std::function<void()> Cancel;
    QPointer<QProgressDialog> Box;
};

}  // namespace zps
