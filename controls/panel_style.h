// The look of the windows: the toolkit's own style with frames that are seen on a dark desktop too,
// with buttons that have exactly the colour that they were given and with lists that drop down as
// far as they are told to.
#pragma once

#include <QProxyStyle>

namespace zps {

class PanelStyle : public QProxyStyle {
    Q_OBJECT
  public:
    PanelStyle();

    // Gives what is selected, in lists, menus and fields, what is disabled and dark buttons colours
    // that their text reads well in.
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr, QStyleHintReturn* more = nullptr) const override;

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;

  private:
    static QColor LineColour(const QStyleOption& option);
    static void DrawFrame(const QStyleOption& option, QPainter& painter);
    static void DrawGroupFrame(const QStyleOption& option, QPainter& painter);
    static void DrawPaintedButton(const QStyleOption& option, QPainter& painter);
};

}  // namespace zps
