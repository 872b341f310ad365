#include "test/bit_lamps.h"

#include "controls/colours.h"
#include "controls/faded.h"
#include "controls/flowing_row.h"
#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zps {

namespace {

struct Bit {
    const char* Caption;
    const char* Meaning;
};
constexpr std::array<Bit, BitLamps::BitCount> Bits{{
    {"Protect", "1이면 보호가 작동하여 출력이 꺼짐"},
    {"Vsense", "1이면 원격 센싱 켜짐"},
    {"OUTPUT", "1이면 출력 켜짐"},
    {"AUTO", "1이면 자동 운전 중"},
    {"MODE", "1이면 정전류(CC), 0이면 정전압(CV)"},
    {"OCP", "1이면 과전류 보호 켜짐"},
    {"REM/LOC", "1이면 원격 제어(REMOTE)"},
    {"REM ON/OFF", "1이면 RS-232로 제어 중"},
}};
constexpr std::size_t BitsPerGroup = 4;
constexpr int LampHeight = 22;

// Room for `text` too.
void ReserveFor(QLabel& label, const QString& text) {
    constexpr int air = 4;
    label.setMinimumWidth(
        qMax(label.minimumWidth(), label.fontMetrics().horizontalAdvance(text) + air));
}

}  // namespace

BitLamps::BitLamps() {
    auto* groups = new FlowingRow(QBoxLayout::TopToBottom);
    for (std::size_t first = 0; first < BitCount; first += BitsPerGroup) {
        auto* group = new QWidget;
        auto* row = new QHBoxLayout(group);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(4);
        for (std::size_t bit = first; bit < first + BitsPerGroup; ++bit)
            row->addWidget(MakeCell(bit), 1);
        groups->Add(*group, 1);
    }
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(groups);
}

QWidget* BitLamps::MakeCell(std::size_t bit) {
    const QString caption = QString::fromUtf8(Bits.at(bit).Caption);
    const QString number = QStringLiteral("bit %1").arg(bit);
    auto* cell = new QFrame;
    cell->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    cell->setToolTip(number + QStringLiteral(": ") + QString::fromUtf8(Bits.at(bit).Meaning));
    auto* head = new QHBoxLayout;
    head->setContentsMargins(5, 1, 5, 1);
    auto* name = MakeLabel({}, number);
    Fade(*name, FaintCaption);
    head->addWidget(name, 1);
    lblBIT.at(bit) = MakeLabel(QStringLiteral("lblBIT_%1").arg(bit), QStringLiteral("–"), number);
    QFont digit = lblBIT.at(bit)->font();
    SetNumberFace(digit);
    Embolden(digit);
    lblBIT.at(bit)->setFont(digit);
    ReserveFor(*lblBIT.at(bit), QStringLiteral("0"));
    head->addWidget(lblBIT.at(bit));
    auto* lamp = MakeLabel(QStringLiteral("ledSTATUS_%1").arg(bit), caption, caption);
    lamp->setAlignment(Qt::AlignCenter);
    lamp->setMargin(1);
    lamp->setMinimumHeight(LampHeight);
    for (const Bit& any : Bits)  // all as wide as the widest
        ReserveFor(*lamp, QString::fromUtf8(any.Caption));
    PaintBackground(*lamp, Colour::White);
    ledSTATUS.at(bit) = lamp;
    auto* column = new QVBoxLayout(cell);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addLayout(head);
    column->addWidget(lamp, 1);
    return cell;
}

void BitLamps::Show(std::uint8_t status) {
    for (std::size_t bit = 0; bit < BitCount; ++bit) {
        const bool set = (status >> bit & 1U) != 0;
        QLabel& lamp = *ledSTATUS.at(bit);
        PaintBackground(lamp, set ? Colour::Red : Colour::White);
        const QString state = set ? QStringLiteral("켜짐") : QStringLiteral("꺼짐");
        if (state != lamp.accessibleDescription()) lamp.setAccessibleDescription(state);
        lblBIT.at(bit)->setText(set ? QStringLiteral("1") : QStringLiteral("0"));
    }
    ShowOld(false);
}

void BitLamps::ShowOld(bool old) {
    for (QLabel* digit : lblBIT) Fade(*digit, old ? Stale : 1);
}

}  // namespace zps
