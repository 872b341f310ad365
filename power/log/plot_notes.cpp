// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/plot_notes.h"

#include "power/log/curve_colours.h"
#include "power/log/plot_parts.h"

#include <qcustomplot.h>

#include <cmath>

namespace zps {

namespace {

constexpr int LetterPadding = 14;  // px beside a letter, with its frame

QCPItemStraightLine* MakeLine(QCustomPlot& plot) {
    auto* line = new QCPItemStraightLine(&plot);
    line->setVisible(false);
    return line;
}

void PlaceLine(QCPItemStraightLine& line, std::optional<double> place) {
    line.setVisible(place.has_value());
    if (!place) return;
    line.point1->setCoords(*place, 0);
    line.point2->setCoords(*place, 1);
}

QCPItemText* MakeNote(QCustomPlot& plot) {
    QCPItemText* note = MakeText(plot);
    note->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
    return note;
}

}  // namespace

PlotNotes::PlotNotes(QCustomPlot& plot, bool rowAbove) : Plot(plot), RowAbove(rowAbove) {
    for (auto& line : MarkLines) line = MakeLine(plot);
    for (std::size_t mark = 0; mark < MarkNames.size(); ++mark) {
        MarkNames[mark] = MakeNote(plot);
        MarkNames[mark]->setText(mark == 0 ? QStringLiteral("A") : QStringLiteral("B"));
        MarkNames[mark]->position->setTypeY(QCPItemPosition::ptAbsolute);
    }
    Cursor = MakeLine(plot);
    Reading = MakeNote(plot);
    Reading->setTextAlignment(Qt::AlignLeft);
}

void PlotNotes::Colour(const QPalette& palette, const QFont& font) {
    const QColor text = palette.color(QPalette::Text);
    QColor ground = palette.color(QPalette::Base);
    Cursor->setPen(QPen(text, 1));
    for (auto* line : MarkLines) line->setPen(QPen(text, 1, Qt::DashLine));
    ground.setAlphaF(0.9F);
    for (QCPItemText* note : {Reading, MarkNames[0], MarkNames[1]}) {
        note->setColor(text);
        note->setFont(font);
        note->setBrush(ground);
        note->setPen(QPen(FaintText(palette, 0.5F)));
    }
}

// Left of their lines, for values are written to the right of the last sample; where two would
// cover one another, B below A.
void PlotNotes::PlaceMarks(const std::array<std::optional<double>, 2>& places) {
    const QFontMetrics metrics(MarkNames[0]->font());
    const int width = metrics.horizontalAdvance(u'A') + LetterPadding;
    const int height = metrics.height() + LetterPadding / 4;
    const auto pixel = [this](double place) { return Plot.xAxis->coordToPixel(place); };
    const auto& [a, b] = places;
    const bool crowded = a && b && std::abs(pixel(*a) - pixel(*b)) < 2 * width;
    double top = Plot.axisRect()->margins().top() + (RowAbove ? height : 0);
    for (std::size_t mark = 0; mark < places.size(); ++mark) {
        const auto& place = places.at(mark);
        PlaceLine(*MarkLines.at(mark), place);
        QCPItemText& name = *MarkNames.at(mark);
        name.setVisible(place.has_value());
        if (!place) continue;
        const bool left = pixel(*place) - Plot.axisRect()->left() >= width;
        name.setPositionAlignment(Qt::AlignTop | (left ? Qt::AlignRight : Qt::AlignLeft));
        name.position->setCoords(*place, top);
        if (crowded) top += height;
    }
}

void PlotNotes::PlaceCursor(std::optional<double> place, const QString& reading) {
    PlaceLine(*Cursor, place);
    Reading->setVisible(place && !reading.isEmpty());
    if (!place) return;
    Reading->setText(reading);
    const bool leftHalf = *place < Reading->position->keyAxis()->range().center();
    Reading->setPositionAlignment(Qt::AlignBottom | (leftHalf ? Qt::AlignLeft : Qt::AlignRight));
    Reading->position->setCoords(*place, 0.94);
}

}  // namespace zps
