// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/plot_notes.h"

#include "power/log/curve_colours.h"
#include "power/log/plot_parts.h"

#include <qcustomplot.h>

namespace zps {

namespace {

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

PlotNotes::PlotNotes(QCustomPlot& plot) {
    for (auto& line : MarkLines) line = MakeLine(plot);
    for (std::size_t mark = 0; mark < MarkNames.size(); ++mark) {
        MarkNames[mark] = MakeNote(plot);
        MarkNames[mark]->setText(mark == 0 ? QStringLiteral("A") : QStringLiteral("B"));
        MarkNames[mark]->setPositionAlignment(Qt::AlignTop | Qt::AlignHCenter);
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

void PlotNotes::PlaceMark(std::size_t mark, std::optional<double> place) {
    PlaceLine(*MarkLines.at(mark), place);
    MarkNames.at(mark)->setVisible(place.has_value());
    if (place) MarkNames.at(mark)->position->setCoords(*place, 0);
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
