// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/chart_canvas.h"

#include "controls/number_face.h"
#include "controls/number_text.h"
#include "power/log/curve_colours.h"
#include "power/log/plot_notes.h"
#include "power/log/plot_parts.h"

#include <QEvent>
#include <QVBoxLayout>
#include <qcustomplot.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zps {

namespace {

constexpr double Gap = std::numeric_limits<double>::quiet_NaN();
const QString TimeTitle = QStringLiteral("시간(초)");
constexpr double BeforeStart = 0.02;  // the same for a sample at the start

}  // namespace

struct ChartCanvas::Drawing {
    explicit Drawing(ChartCanvas& canvas);
    void ApplyPalette(const QPalette& palette, QFont font);

    void PlaceCurves(const ChartTable& table);
    void PlaceEnds(const ChartTable& table);
    bool PlaceTimes(const TimeAxis& axis);
    void LabelTimes();
    std::optional<double> PlaceOf(const std::optional<ChartPoint>& point) const;

    QCustomPlot& Plot;
    PlotCurves Curves;
    std::array<double, ChartColumns> Tops{};
    std::array<QCPItemText*, ChartColumns> Ends{};
    PlotNotes Notes;
    TimeAxis Times{};
    ChartTable Table;
};

ChartCanvas::Drawing::Drawing(ChartCanvas& canvas)
    : Plot(MakePlot(canvas)),
      Curves(MakeCurves(Plot)),
      Ends{MakeText(Plot), MakeText(Plot)},
      Notes(Plot, false) {
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        Ends[column]->setPositionAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        Ends[column]->position->setAxes(Plot.xAxis, &ValueAxis(Plot, column));
    }
    ApplyPalette(canvas.palette(), canvas.font());
}

void ChartCanvas::Drawing::ApplyPalette(const QPalette& palette, QFont font) {
    SetNumberFace(font);
    ColourPlot(Plot, palette, font);
    ColourCurves(Curves, palette);
    Notes.Colour(palette, font);
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        Ends[column]->setColor(CurveColour(static_cast<int>(column), palette));
        Ends[column]->setFont(font);
    }
    SetMargins(Plot);
    LabelTimes();
    Plot.replot(QCustomPlot::rpQueuedReplot);
}

void ChartCanvas::Drawing::PlaceCurves(const ChartTable& table) {
    const QVector<double> places(Times.Places.begin(), Times.Places.end());
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        double highest = 0;
        auto& data = *Curves.Values[column]->data();
        data.clear();
        for (std::size_t row = 0; row < table.size(); ++row) {
            const auto& value = table[row].Values[column];
            if (std::isnan(Times.Places[row])) continue;
            const double shown = value ? static_cast<double>(value->Value) : Gap;
            data.add({Times.Places[row], shown});
            highest = std::max(highest, value ? shown : 0);
        }
        // Runs do not hang together, nor samples with a silence between them.
        for (const auto* gaps : {&Times.Breaks, &Times.Silences}) {
            for (const double place : *gaps) data.add({place, Gap});
        }
        Tops[column] = NextTop(Tops[column], highest, RoomAbove(column));
    }
    Curves.Breaks->data()->clear();
    for (const double place : Times.Breaks) Curves.Breaks->addData(place, Tops[0]);
}

// The last values stand behind the curves, and never on one another.
void ChartCanvas::Drawing::PlaceEnds(const ChartTable& table) {
    const auto last = std::find_if(table.rbegin(), table.rend(),
                                   [](const ChartPoint& point) { return !point.IsGap(); });
    for (auto* end : Ends) end->setVisible(false);
    if (last == table.rend()) return;
    const double place = Times.Places[static_cast<std::size_t>(table.rend() - last - 1)];
    const auto& [volts, amps] = last->Values;
    std::pair heights{volts ? static_cast<double>(volts->Value) / Tops[0] : 1,
                      amps ? static_cast<double>(amps->Value) / Tops[1] : 0};
    const double text = QFontMetrics(Ends[0]->font()).height();
    heights = Apart(heights.first, heights.second, text / std::max(1, Plot.axisRect()->height()));
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        const auto& value = last->Values[column];
        if (!value) continue;
        Ends[column]->setText(FixedText(value->Value, value->Decimals));
        const double height = column == 0 ? heights.first : heights.second;
        Ends[column]->position->setCoords(place, height * Tops[column]);
        Ends[column]->setVisible(true);
    }
}

// Whether the axis has changed.
bool ChartCanvas::Drawing::PlaceTimes(const TimeAxis& axis) {
    const bool same = axis.Low == Times.Low && axis.High == Times.High && axis.Ticks == Times.Ticks;
    Times = axis;
    if (same) return false;
    LabelTimes();
    return true;
}

void ChartCanvas::Drawing::LabelTimes() {
    const QFontMetrics metrics(Plot.xAxis->tickLabelFont());
    const double width = Times.High - Times.Low;
    if (width <= 0) return;
    // What is written behind the curves needs room, too.
    const int room = metrics.horizontalAdvance(QStringLiteral("000.0000")) + 8;
    // The library measures its axes only when it draws.
    const QMargins margins = Plot.axisRect()->margins();
    const int axis = Plot.parentWidget()->width() - margins.left() - margins.right();
    const double pixels = std::max(1, axis - room);
    Plot.xAxis->setRange(Times.Low - BeforeStart * width, Times.High + width * room / pixels);
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    const auto& ticks = Times.Ticks;
    const double each = pixels / std::max<double>(1, static_cast<double>(ticks.size()) - 1);
    const QString longest = QString::fromStdString(ticks.back().Label) + QStringLiteral("00");
    const int every = LabelEvery(each, metrics.horizontalAdvance(longest));
    for (const auto& tick : ticks) {
        const bool labelled = tick.Step % every == 0;
        ticker->addTick(tick.Place, labelled ? QString::fromStdString(tick.Label) : QString());
    }
    Plot.xAxis->setTicker(ticker);
}

std::optional<double> ChartCanvas::Drawing::PlaceOf(const std::optional<ChartPoint>& point) const {
    const auto* const found = point ? std::find(Table.begin(), Table.end(), *point) : Table.end();
    if (found == Table.end()) return std::nullopt;
    return Times.Places[static_cast<std::size_t>(found - Table.begin())];
}

ChartCanvas::ChartCanvas(QWidget* parent)
    : QWidget(parent), Plotting(std::make_unique<Drawing>(*this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&Plotting->Plot);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    Plotting->Plot.xAxis->setLabel(TimeTitle);
    Plot({});
}

ChartCanvas::~ChartCanvas() = default;

void ChartCanvas::Plot(const ChartTable& table) {
    Drawing& drawing = *Plotting;
    drawing.Table = table;
    bool moved = drawing.PlaceTimes(LayOutTimes(table));
    drawing.PlaceCurves(table);
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        moved = PlaceValueAxis(ValueAxis(drawing.Plot, column), drawing.Tops[column]) || moved;
    }
    drawing.PlaceEnds(table);
    if (moved)
        drawing.Plot.replot(QCustomPlot::rpQueuedRefresh);
    else
        drawing.Curves.Values[0]->layer()->replot();
}

void ChartCanvas::Point(std::optional<int> row, const ChartMarks& marks) {
    Drawing& drawing = *Plotting;
    const auto& [a, b] = marks.Marked();
    drawing.Notes.PlaceMarks({drawing.PlaceOf(a), drawing.PlaceOf(b)});
    std::optional<double> place;
    if (row) place = drawing.Times.Places[static_cast<std::size_t>(*row)];
    drawing.Notes.PlaceCursor(
        place, row ? ReadingText(drawing.Table[static_cast<std::size_t>(*row)]) : QString());
    drawing.Curves.Values[0]->layer()->replot();
}

std::optional<int> ChartCanvas::RowAt(int x) const {
    return NearestRow(Plotting->Times, Plotting->Plot.xAxis->pixelToCoord(x));
}

void ChartCanvas::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::FontChange ||
        type == QEvent::EnabledChange) {
        Plotting->ApplyPalette(palette(), font());
    }
}

void ChartCanvas::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The curves need the room more than the title does.
    Plotting->Plot.xAxis->setLabel(height() < LowPlot ? QString() : TimeTitle);
    SetMargins(Plotting->Plot);
    Plotting->LabelTimes();
    // Curves alone, drawn before the axes are, would stand beside them.
    Plotting->Plot.replot(QCustomPlot::rpQueuedRefresh);
}

}  // namespace zps
