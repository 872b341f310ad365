#include "test/reply_fields.h"

#include "controls/colours.h"
#include "controls/faded.h"
#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zps {

namespace {

struct Place {
    const char* Name;
    const char* Text;
    const char* TitleName;
    const char* Title;
    const char* Widest;        // without a scaled value beside it
    const char* ScaledWidest;  // null where there is none
};
// In the order of Field.
constexpr std::array<Place, FieldCount> Places{{
    {"lblSTATUS", "STATUS", "Label11_9", "SUB STATUS", "STATUS", nullptr},
    {"lblERROR", "ERROR", "Label11_8", "ERROR DATA", "OUT OFF ERROR CURRENT", nullptr},
    {"lblSTEP", "STEP", "Label11_5", "RX STEP", "STEP", nullptr},
    {"lblVOLTAGE", "VOLTAGE", "Label11_7", "POWER VOLT", "65535", "= 6553.5 V"},
    {"lblOVP", "OVP", "Label11_0", "OVP SET", "65535", "= 6553.5 V"},
    {"lblCURRENT", "CURRENT", "Label11_6", "POWER CURR", "65535", "= 6553.5 A"},
}};
constexpr std::size_t FieldsPerLine = 3;
constexpr double CountSize = 1.25;

void MakeFigures(QLabel& label, double size) {
    SetNumberFace(label);
    if (size > 1) Enlarge(label, size);
}

void ReserveFor(QLabel& label, const char* widest) {
    label.setMinimumWidth(label.fontMetrics().horizontalAdvance(QString::fromUtf8(widest)) + 2);
}

QLabel* MakeOld() {
    auto* old = MakeLabel(QStringLiteral("lblOLD"), QStringLiteral("이전 응답"));
    PaintBackground(*old, QColor(shade::Amber));
    old->setContentsMargins(6, 0, 6, 0);
    QSizePolicy policy = old->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    old->setSizePolicy(policy);
    old->hide();
    return old;
}

}  // namespace

ReplyFields::ReplyFields() : lblOLD(MakeOld()) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* heading = new QHBoxLayout;
    heading->addWidget(MakeLabel(QStringLiteral("Label1"), QStringLiteral("DISPLAY")));
    heading->addWidget(lblOLD);
    heading->addStretch(1);
    column->addLayout(heading);
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    for (std::size_t place = 0; place < FieldCount; ++place) {
        const auto row = static_cast<int>(place / FieldsPerLine);
        const auto line = static_cast<int>(place % FieldsPerLine);
        const auto& title = Places.at(place);
        grid->addWidget(
            MakeLabel(QString::fromUtf8(title.TitleName), QString::fromUtf8(title.Title)), 2 * row,
            line);
        grid->addWidget(MakeCell(place), 2 * row + 1, line);
        grid->setColumnStretch(line, 1);
    }
    column->addLayout(grid);
    SetStrength(Stale);  // names, no values
}

QWidget* ReplyFields::MakeCell(std::size_t place) {
    const Place& given = Places.at(place);
    Cell& cell = Cells.at(place);
    const QString title = QString::fromUtf8(given.Title);
    auto* box = new QFrame;
    box->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(4, 2, 4, 2);
    cell.Count = MakeLabel(QString::fromUtf8(given.Name), QString::fromUtf8(given.Text), title);
    // A text of error has no room to be as large as a figure.
    if (static_cast<Field>(place) == Field::Error)
        Enlarge(*cell.Count, 1);
    else
        MakeFigures(*cell.Count, CountSize);
    ReserveFor(*cell.Count, given.Widest);
    row->addWidget(cell.Count, 1);
    if (given.ScaledWidest == nullptr) return box;
    cell.Scaled = MakeLabel(QString::fromUtf8(given.Name) + QStringLiteral("_SCALED"), {},
                            title + QStringLiteral(" 환산값"));
    MakeFigures(*cell.Scaled, 1);
    cell.Scaled->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ReserveFor(*cell.Scaled, given.ScaledWidest);
    row->addWidget(cell.Scaled);
    box->setMinimumWidth(box->minimumSizeHint().width());  // also while that is hidden
    cell.Scaled->hide();
    return box;
}

void ReplyFields::Show(const std::array<FieldText, FieldCount>& texts) {
    Decoded = true;
    for (std::size_t place = 0; place < FieldCount; ++place) {
        const Cell& cell = Cells.at(place);
        cell.Count->setText(QString::fromStdString(texts.at(place).Count));
        if (cell.Scaled == nullptr) continue;
        cell.Scaled->setText(QString::fromStdString(texts.at(place).Scaled));
        cell.Scaled->setVisible(!texts.at(place).Scaled.empty());
    }
    ShowOld(false);
}

void ReplyFields::ShowOld(bool old) {
    if (!Decoded) return;
    lblOLD->setVisible(old);
    SetStrength(old ? Stale : 1);
}

void ReplyFields::SetStrength(double strength) {
    for (const Cell& cell : Cells) {
        for (QLabel* label : {cell.Count, cell.Scaled})
            if (label != nullptr) Fade(*label, strength);
    }
}

}  // namespace zps
