// The look of the windows: the toolkit's own style with frames that are seen on a dark desktop too,
// and with buttons that have exactly the colour that they were given.
#pragma once

#include <QProxyStyle>

namespace zps {

class PanelStyle : public QProxyStyle {
    Q_OBJECT
  public:
    PanelStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;

  private:
    static void DrawGroupFrame(const QStyleOption& option, QPainter& painter);
    static void DrawPaintedButton(const QStyleOption& option, QPainter& painter);
};

}  // namespace zps
