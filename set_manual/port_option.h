// The choice of one serial port, with the device that it would open.
#pragma once

#include <QRadioButton>

namespace zps {

// Its whole cell is the button.
class PortOption : public QRadioButton {
  public:
    explicit PortOption(int number);

    // `device` stands under the caption, faint where there is none to open; `hint` tells the rest.
    void ShowDevice(const QString& device, bool there, const QString& hint);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool hitButton(const QPoint& /*at*/) const override { return true; }
    void paintEvent(QPaintEvent* event) override;

  private:
    QFont DeviceFont() const;
    QSize CaptionSize() const { return QRadioButton::sizeHint(); }

    QString Device;
    bool There = true;
};

}  // namespace zps
