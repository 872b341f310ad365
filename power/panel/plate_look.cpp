#include "power/panel/plate_look.h"

#include "controls/colours.h"
#include "controls/spoken_labels.h"

#include <QPainter>

#include <array>
#include <utility>

namespace zps {

namespace {

using Kind = ReadingBadge::Kind;

const QColor Ground(0x10, 0x14, 0x18);
const QColor Ink(0xC4, 0xCC, 0xD4);
const QColor Amber(0xFF, 0xB0, 0x20);
const QColor Calm(0x3A, 0x42, 0x4A);
const QColor Live(shade::Green);
const QColor Limited(shade::Curr);
const QColor Steady(shade::Blue);
constexpr double Past = 0.3;  // of the ground in a number that is old

struct Number {
    ReadOut* Shown;
    QColor Measured;
};

std::array<Number, 3> Numbers(const PowerControls& c) {
    return {{{c.txtVOLT, QColor(shade::Volt)},
             {c.txtCURR, QColor(shade::Curr)},
             {c.Plate.txtWATT, {0xA8, 0xD8, 0xA0}}}};
}

QColor NumberColour(Kind kind, const QColor& measured) {
    if (kind == Kind::Measured) return measured;
    const bool old = kind == Kind::LastMeasured || kind == Kind::NoAnswer;
    return old ? Between(measured, Ground, Past) : Ink;
}

QColor BadgeColour(Kind kind) {
    if (kind == Kind::Measured) return Live;
    return kind == Kind::Set ? Calm : Amber;
}

}  // namespace

PlateFrame::PlateFrame() : GrowingFrame({300, 245}, 3) {
    setObjectName(QStringLiteral("fraPLATE"));
    QPalette colours = palette();
    for (const auto role : {QPalette::Window, QPalette::Base}) colours.setColor(role, Ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::PlaceholderText})
        colours.setColor(role, Ink);
    setPalette(colours);
}

void PlateFrame::paintEvent(QPaintEvent* /*event*/) {
    constexpr int radius = 6;  // px
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ground);
    painter.drawRoundedRect(rect(), radius, radius);
}

void ShowBadge(PowerControls& c, const ReadingBadge& badge, bool other) {
    Pill& pill = *c.Plate.lblREADING;
    if (pill.text() != badge.Text) pill.setText(badge.Text);
    if (!other) return;
    Say(pill);
    pill.Fill(BadgeColour(badge.Is));
    for (const auto& [shown, measured] : Numbers(c)) {
        QPalette colours = shown->palette();
        colours.setColor(QPalette::Text, NumberColour(badge.Is, measured));
        shown->setPalette(colours);
    }
}

void ShowMode(PowerControls& c, bool limited) {
    c.lblMODE->setText(limited ? QStringLiteral("CC") : QStringLiteral("CV"));
    c.lblMODE->Fill(limited ? Limited : Steady);
}

}  // namespace zps
