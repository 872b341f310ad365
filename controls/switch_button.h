// The button of a switch, with its function key written on it.
#pragma once

#include <QPushButton>

#include <vector>

namespace zps {

// The key stands at the right, in grey; the caption is only the caption. Where there is room the
// switch becomes higher than `height` (px), and its caption larger.
class SwitchButton : public QPushButton {
  public:
    SwitchButton(const QString& name, const QString& caption, const QString& accessibleName,
                 QString key, int height);

    // Tells screen readers whether what it switches is on. A click changes nothing by itself.
    void ShowOn(bool on);
    bool IsOn() const { return On; }

    // The least width at which any of these captions and the key are wholly there.
    int WidthFor(const std::vector<const char*>& captions) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QFont KeyFont() const;
    int KeyWidth() const;

    const QString Key;
    const int Height;  // usual, px
    const QFont Usual;
    bool On = false;
};

}  // namespace zps
