// The look of the windows: the toolkit's own style with frames that are seen on a dark desktop too.
#pragma once

#include <QProxyStyle>

namespace zps {

class PanelStyle : public QProxyStyle {
    Q_OBJECT
  public:
    PanelStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
};

}  // namespace zps
