#include "controls/panel_style.h"

#include "controls/colours.h"
#include "controls/message_icons.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>
#include <qdrawutil.h>

#include <utility>

namespace zps {

namespace {

// Its colour means something and is its own, not that of the desktop's buttons.
bool IsPainted(const QWidget* button) {
    return button != nullptr && button->testAttribute(Qt::WA_SetPalette) &&
           button->palette().isBrushSet(QPalette::Normal, QPalette::Button);
}

}  // namespace

PanelStyle::PanelStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void PanelStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    constexpr double readable = 4.5;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        if (Contrast(palette.color(group, QPalette::Highlight), text) >= readable) continue;
        palette.setColor(group, QPalette::Highlight, QColor(shade::Blue));
        palette.setColor(group, QPalette::HighlightedText, Qt::white);
    }
    // The style shades a button to both sides of its colour.
    constexpr double readableShaded = 6;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor button = palette.color(group, QPalette::Button);
        if (Contrast(button, palette.color(QPalette::Active, QPalette::ButtonText)) <
            readableShaded)
            palette.setColor(group, QPalette::Button, Between(button, Qt::black, 0.4));
    }
    for (const auto& [text, ground] : {std::pair{QPalette::WindowText, QPalette::Window},
                                       {QPalette::ButtonText, QPalette::Button},
                                       {QPalette::Text, QPalette::Base}}) {
        palette.setColor(QPalette::Disabled, text,
                         DisabledText(palette.color(QPalette::Active, text),
                                      palette.color(QPalette::Disabled, ground)));
    }
}

void PanelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    if (element == PE_FrameGroupBox) return DrawGroupFrame(*option, *painter);
    if (element == PE_Frame) return DrawFrame(*option, *painter);
    if (IsPainted(widget)) {
        if (element == PE_PanelButtonCommand) return DrawPaintedButton(*option, *painter);
        if (element == PE_FrameFocusRect) return;  // would tint the colour; its own frame tells
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

// The menu that a key has led to is marked before it opens, too.
void PanelStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* menu = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuBarItem || menu == nullptr || !(menu->state & State_Selected))
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem marked(*menu);
    marked.state |= State_Sunken;
    QProxyStyle::drawControl(element, &marked, painter, widget);
}

int PanelStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* more) const {
    // A list drops down as many rows as it is told to; the toolkit's own would show them all.
    if (hint == SH_ComboBox_Popup) return 0;
    // The Alt key alone leads to the menus and back.
    if (hint == SH_MenuBar_AltKeyNavigation) return 1;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

QIcon PanelStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
    switch (which) {
        case SP_MessageBoxInformation:
            return DrawMessageIcon(MessageIcon::Information);
        case SP_MessageBoxQuestion:
            return DrawMessageIcon(MessageIcon::Question);
        case SP_MessageBoxWarning:
            return DrawMessageIcon(MessageIcon::Warning);
        case SP_MessageBoxCritical:
            return DrawMessageIcon(MessageIcon::Critical);
        default:
            return QProxyStyle::standardIcon(which, option, widget);
    }
}

QColor PanelStyle::LineColour(const QStyleOption& option) {
    QColor line = option.palette.color(QPalette::WindowText);
    line.setAlphaF(0.3F);
    return line;
}

// On all four sides, and in a colour that is seen.
void PanelStyle::DrawFrame(const QStyleOption& option, QPainter& painter) {
    qDrawPlainRect(&painter, option.rect, LineColour(option));
}

void PanelStyle::DrawGroupFrame(const QStyleOption& option, QPainter& painter) {
    // Below the title, as the toolkit's own style has it.
    constexpr int gap = 3;
    const int title = option.fontMetrics.height() + gap;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(LineColour(option));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, title + 0.5, -0.5, -0.5), 3, 3);
    painter.restore();
}

// Flat, so that the colour is the same everywhere; what the button does is told by its frame.
void PanelStyle::DrawPaintedButton(const QStyleOption& option, QPainter& painter) {
    const bool pressed = option.state.testAnyFlags(State_Sunken | State_On);
    const bool focused = option.state.testFlags(State_HasFocus | State_KeyboardFocusChange);
    QColor frame =
        option.palette.color(focused && !pressed ? QPalette::Highlight : QPalette::ButtonText);
    if (!focused && !pressed) frame.setAlphaF(option.state & State_Enabled ? 0.4F : 0.15F);
    painter.fillRect(option.rect, option.palette.color(QPalette::Button));
    qDrawPlainRect(&painter, option.rect, frame, pressed ? 3 : focused ? 2 : 1);
}

}  // namespace zps
