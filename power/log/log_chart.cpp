// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/log_chart.h"

#include <QEvent>
#include <QVBoxLayout>
#include <qcustomplot.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace zps {

namespace {

// What differs between the two curves. Marks and strokes differ as well as colours, for people who
// tell colours apart badly; the room above the highest value keeps two steady curves from lying on
// one another, whatever RoundedUp adds to it.
struct Curve {
    const char* Name;
    const char* AxisTitle;
    QRgb OnLight;
    QRgb OnDark;
    Qt::PenStyle Stroke;
    QCPScatterStyle::ScatterShape Mark;
    double Room;
};
constexpr std::array<Curve, ChartColumns> Curves{
    Curve{"전압", "전압 (V)", 0xFF0050B0, 0xFF7AB8FF, Qt::SolidLine, QCPScatterStyle::ssDisc, 1.15},
    Curve{"전류", "전류 (A)", 0xFFB03A00, 0xFFFFB070, Qt::DashLine, QCPScatterStyle::ssSquare, 1.6},
};

constexpr float Gap = std::numeric_limits<float>::quiet_NaN();

// Away from zero to the next round number, at most a third more: an axis that stands still can be
// read, and need not be drawn again with every sample.
double RoundedUp(double value) {
    if (value == 0) return 0;
    const double decade = std::pow(10, std::floor(std::log10(std::abs(value))));
    for (const double step : {1., 1.2, 1.5, 2., 2.5, 3., 4., 5., 6., 8.}) {
        if (std::abs(value) <= step * decade) return std::copysign(step * decade, value);
    }
    return std::copysign(10 * decade, value);
}

// From zero, or below where a value is, to a little above the highest value.
QCPRange RangeFor(const QVector<double>& values, double room) {
    double low = 0;
    double high = 0;
    for (const double value : values) {
        if (!std::isfinite(value)) continue;
        low = std::min(low, value);
        high = std::max(high, value);
    }
    return {RoundedUp(low * room), high > 0 ? RoundedUp(high * room) : 1};
}

}  // namespace

struct LogChart::Drawing {
    explicit Drawing(LogChart& chart);
    void SetUpCurve(int column, QCPAxis& axis);
    void PutLegendAbove();
    void ApplyPalette(const QPalette& palette, const QFont& font);
    void ColourAxis(QCPAxis& axis, const QColor& lines, const QColor& texts, const QFont& font);

    QCustomPlot& Canvas;
    std::array<QCPGraph*, ChartColumns> Graphs{};
};

LogChart::Drawing::Drawing(LogChart& chart) : Canvas(*new QCustomPlot(&chart)) {
    Canvas.setFocusPolicy(Qt::NoFocus);
    Canvas.xAxis->setRange(0.5, ChartRows + 0.5);
    Canvas.xAxis->setSubTicks(false);
    Canvas.xAxis->setLabel(QStringLiteral("측정 %1개").arg(ChartRows));
    Canvas.yAxis2->setVisible(true);
    SetUpCurve(0, *Canvas.yAxis);
    SetUpCurve(1, *Canvas.yAxis2);
    PutLegendAbove();
    // The curves can then be drawn without the axes, their texts and the legend.
    Canvas.currentLayer()->setMode(QCPLayer::lmBuffered);
    Canvas.setPlottingHint(QCP::phImmediateRefresh, false);
    ApplyPalette(chart.palette(), chart.font());
}

void LogChart::Drawing::SetUpCurve(int column, QCPAxis& axis) {
    const auto place = static_cast<std::size_t>(column);
    const Curve& curve = Curves[place];
    axis.setLabel(QString::fromUtf8(curve.AxisTitle));
    Graphs[place] = Canvas.addGraph(Canvas.xAxis, &axis);
    Graphs[place]->setName(QString::fromUtf8(curve.Name));
}

// Beside the curves it would hide points.
void LogChart::Drawing::PutLegendAbove() {
    auto* line = new QCPLayoutGrid;  // what the names leave free of it stays empty
    line->addElement(0, 0, Canvas.legend);
    line->addElement(0, 1, new QCPLayoutElement(&Canvas));
    line->setColumnStretchFactor(0, 0.001);
    Canvas.plotLayout()->insertRow(0);
    Canvas.plotLayout()->addElement(0, 0, line);
    Canvas.plotLayout()->setRowStretchFactor(0, 0.001);
    Canvas.legend->setFillOrder(QCPLegend::foColumnsFirst);
    Canvas.legend->setBorderPen(Qt::NoPen);
    Canvas.legend->setBrush(Qt::NoBrush);
    Canvas.legend->setVisible(true);
}

void LogChart::Drawing::ColourAxis(QCPAxis& axis, const QColor& lines, const QColor& texts,
                                   const QFont& font) {
    for (const auto set : {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen}) {
        (axis.*set)(QPen(lines));
    }
    axis.setTickLabelColor(texts);
    axis.setLabelColor(texts);
    axis.setTickLabelFont(font);
    axis.setLabelFont(font);
}

void LogChart::Drawing::ApplyPalette(const QPalette& palette, const QFont& font) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    QColor faint = text;
    faint.setAlphaF(0.2F);
    const bool dark = ground.lightness() < text.lightness();
    const std::array axes{Canvas.yAxis, Canvas.yAxis2};
    for (std::size_t column = 0; column < axes.size(); ++column) {
        const Curve& curve = Curves[column];
        QColor colour(dark ? curve.OnDark : curve.OnLight);
        if (palette.currentColorGroup() == QPalette::Disabled) colour.setAlphaF(0.4F);
        ColourAxis(*axes[column], text, colour, font);
        axes[column]->grid()->setPen(QPen(faint, 0));
        axes[column]->grid()->setZeroLinePen(QPen(faint, 0));
        Graphs[column]->setPen(QPen(colour, 1.5, curve.Stroke));
        Graphs[column]->setScatterStyle(QCPScatterStyle(curve.Mark, QPen(colour), colour, 5));
    }
    ColourAxis(*Canvas.xAxis, text, text, font);
    Canvas.xAxis->grid()->setPen(QPen(faint, 0));
    Canvas.setBackground(ground);
    Canvas.legend->setTextColor(text);
    Canvas.legend->setFont(font);
    Canvas.replot(QCustomPlot::rpQueuedReplot);
}

LogChart::LogChart(QWidget* parent) : QWidget(parent), Plot(std::make_unique<Drawing>(*this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&Plot->Canvas);
    setMinimumSize(280, 160);
    Replace({});
}

LogChart::~LogChart() = default;

void LogChart::SetData(const ChartTable& table) {
    if (table != Plotted) Replace(table);
}

void LogChart::Replace(const ChartTable& table) {
    Plotted = table;
    QVector<double> places(ChartRows);
    std::iota(places.begin(), places.end(), 1);
    bool axesStand = true;
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        QVector<double> values;
        for (const auto& row : table) values << row[column].value_or(Gap);
        QCPGraph& graph = *Plot->Graphs[column];
        graph.setData(places, values, true);
        const QCPRange range = RangeFor(values, Curves[column].Room);
        axesStand = axesStand && graph.valueAxis()->range() == range;
        graph.valueAxis()->setRange(range);
    }
    if (axesStand)
        Plot->Graphs[0]->layer()->replot();
    else
        Plot->Canvas.replot(QCustomPlot::rpQueuedReplot);
}

double LogChart::PlottedValue(int row, int column) const {
    return Plot->Graphs[static_cast<std::size_t>(column)]->data()->at(row)->value;
}

void LogChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::FontChange ||
        type == QEvent::EnabledChange) {
        Plot->ApplyPalette(palette(), font());
    }
}

}  // namespace zps
