// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/run_curve_canvas.h"

#include "controls/number_face.h"
#include "power/log/band_curve.h"
#include "power/log/chart_axes.h"
#include "power/log/curve_colours.h"
#include "power/log/plot_notes.h"
#include "power/log/plot_parts.h"
#include "power/log/run_curve_axis.h"

#include <QEvent>
#include <QVBoxLayout>
#include <qcustomplot.h>

#include <algorithm>

namespace zps {

namespace {

constexpr double MarkApart = 8;  // px; nearer samples have no marks
constexpr int TitledPlot = 150;  // px; below, the curves need the room more than a title does
constexpr int MostBands = 1920;  // broader pictures have bands of two pixels, or more

using Ticks = std::vector<CurveTick>;

}  // namespace

struct RunCurveCanvas::Drawing {
    Drawing(RunCurveCanvas& canvas, const RunCurve& curve);
    void ApplyPalette(const QPalette& palette, QFont font);
    int Columns() const { return std::max(1, Plot.axisRect()->width()); }
    int BandCount() const;

    CurveStretch Seen() const;
    bool PlaceTimes();
    void TitleTimes();
    bool PlaceTicks(QCPAxis& axis, Ticks& old, Ticks ticks) const;
    bool PlaceValues();
    void PlaceTrace();
    void PlaceBreaks();
    void PlaceNotes();

    const RunCurve& Curve;
    CurveWindow Window;
    QCustomPlot& Plot;
    PlotCurves Curves;
    std::array<double, ChartColumns> Tops{};
    PlotNotes Above;
    RunCurveCanvas::Notes Noted;
    Ticks Times;
    Ticks StepsBegun;
    Trace Shown;
};

RunCurveCanvas::Drawing::Drawing(RunCurveCanvas& canvas, const RunCurve& curve)
    : Curve(curve), Plot(MakePlot(canvas)), Curves(MakeCurves(Plot)), Above(Plot, true) {
    // Smooth joins of some thousand lines would take the toolkit half a second.
    Plot.setPlottingHint(QCP::phFastPolylines);
    Plot.xAxis2->setVisible(true);
    Plot.xAxis2->setSubTicks(false);
    Plot.xAxis2->setTickLabelSide(QCPAxis::lsInside);
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        Curves.Values[column]->setAdaptiveSampling(false);
        AddBands(*Curves.Values[column], column, Shown);
    }
    ApplyPalette(canvas.palette(), canvas.font());
}

void RunCurveCanvas::Drawing::ApplyPalette(const QPalette& palette, QFont font) {
    SetNumberFace(font);
    ColourPlot(Plot, palette, font);
    ColourCurves(Curves, palette);
    ColourAxis(*Plot.xAxis2, FaintText(palette, 0.5F), palette.color(QPalette::Text), font);
    Plot.xAxis2->setTickLength(5, 0);
    Above.Colour(palette, font);
    SetMargins(Plot);
}

// Each of as many whole pixels.
int RunCurveCanvas::Drawing::BandCount() const {
    const int pixels = (Columns() + MostBands - 1) / MostBands;
    return (Columns() + pixels - 1) / pixels;
}

CurveStretch RunCurveCanvas::Drawing::Seen() const {
    return {Window.Low(), Window.High(), static_cast<double>(Columns()), 0};
}

bool RunCurveCanvas::Drawing::PlaceTicks(QCPAxis& axis, Ticks& old, Ticks ticks) const {
    if (ticks == old) return false;
    old = std::move(ticks);
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    for (const auto& tick : old) ticker->addTick(tick.Place, QString::fromStdString(tick.Label));
    axis.setTicker(ticker);
    return true;
}

void RunCurveCanvas::Drawing::TitleTimes() {
    const bool clock = !Times.empty() && Times.back().Label.find(':') != std::string::npos;
    QString title;
    if (Plot.height() >= TitledPlot)
        title = clock ? QStringLiteral("시간(시:분:초)") : QStringLiteral("시간(초)");
    Plot.xAxis->setLabel(title);
}

// Whether an axis has changed.
bool RunCurveCanvas::Drawing::PlaceTimes() {
    CurveStretch seen = Seen();
    const QCPRange range(seen.Low, seen.High);
    const bool moved = Plot.xAxis->range() != range;
    Plot.xAxis->setRange(range);
    Plot.xAxis2->setRange(range);
    const QFontMetrics metrics(Plot.xAxis->tickLabelFont());
    const std::string longest =
        TimeLabel(Window.High(), Window.Width() / 10, WrittenAsClock(Window.High()));
    seen.Room = metrics.horizontalAdvance(QString::fromStdString(longest)) + 24;
    const bool times = PlaceTicks(*Plot.xAxis, Times, TimeTicks(Curve, seen));
    seen.Room = metrics.horizontalAdvance(QStringLiteral("0000")) + 12;
    const bool steps = PlaceTicks(*Plot.xAxis2, StepsBegun, StepTicks(Curve, seen));
    if (times) TitleTimes();
    return moved || times || steps;
}

// Whether an axis has changed.
bool RunCurveCanvas::Drawing::PlaceValues() {
    const Bounds bounds = Curve.ReachOf(Window.Low(), Window.High());
    bool moved = false;
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        const double highest = std::max(0.0, static_cast<double>(bounds.Most[column]));
        Tops[column] = NextTop(Tops[column], highest, RoomAbove(column));
        moved = PlaceValueAxis(ValueAxis(Plot, column), Tops[column]) || moved;
    }
    return moved;
}

void RunCurveCanvas::Drawing::PlaceTrace() {
    Shown = Curve.TraceOf(Window.Low(), Window.High(), BandCount());
    const std::size_t count = Shown.Places.size();
    const auto apart = Columns() / std::max<double>(1, static_cast<double>(count));
    ShowMarks(Curves, apart >= MarkApart);
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        QVector<QCPGraphData> data(static_cast<qsizetype>(count));
        for (std::size_t k = 0; k < count; ++k) {
            data[static_cast<qsizetype>(k)] = {Shown.Places[k],
                                               static_cast<double>(Shown.Values[column][k])};
        }
        Curves.Values[column]->data()->set(data, true);
    }
}

void RunCurveCanvas::Drawing::PlaceBreaks() {
    Curves.Breaks->data()->clear();
    for (const double place : RunBreaks(Curve, Seen())) Curves.Breaks->addData(place, Tops[0]);
}

void RunCurveCanvas::Drawing::PlaceNotes() {
    const auto place = [this](std::optional<std::size_t> index) -> std::optional<double> {
        if (!index || *index >= Curve.Count()) return std::nullopt;
        return Curve.PlaceOf(*index);
    };
    Above.PlaceMarks({place(Noted.Marks[0]), place(Noted.Marks[1])});
    Above.PlaceCursor(place(Noted.Cursor), Noted.Reading);
}

RunCurveCanvas::RunCurveCanvas(const RunCurve& curve, QWidget* parent)
    : QWidget(parent), Plotting(std::make_unique<Drawing>(*this, curve)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&Plotting->Plot);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

RunCurveCanvas::~RunCurveCanvas() = default;

void RunCurveCanvas::Plot(const CurveWindow& window) {
    Plotting->Window = window;
    Replot();
}

void RunCurveCanvas::Replot() {
    if (!isVisible()) return;
    Drawing& drawing = *Plotting;
    const bool times = drawing.PlaceTimes();
    const bool values = drawing.PlaceValues();
    drawing.PlaceTrace();
    drawing.PlaceBreaks();
    drawing.PlaceNotes();
    if (times || values)
        drawing.Plot.replot(QCustomPlot::rpQueuedRefresh);
    else
        drawing.Curves.Breaks->layer()->replot();
}

void RunCurveCanvas::Point(const Notes& notes) {
    Plotting->Noted = notes;
    if (!isVisible()) return;
    Plotting->PlaceNotes();
    Plotting->Curves.Breaks->layer()->replot();
}

int RunCurveCanvas::Columns() const {
    return Plotting->Columns();
}

double RunCurveCanvas::ShareAt(int x) const {
    return static_cast<double>(x - Plotting->Plot.axisRect()->left()) / Columns();
}

void RunCurveCanvas::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type != QEvent::PaletteChange && type != QEvent::FontChange &&
        type != QEvent::EnabledChange)
        return;
    Plotting->ApplyPalette(palette(), font());
    Replot();
    Plotting->Plot.replot(QCustomPlot::rpQueuedReplot);
}

void RunCurveCanvas::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Plotting->TitleTimes();
    SetMargins(Plotting->Plot);
    Replot();
}

}  // namespace zps
