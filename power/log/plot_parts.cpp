// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/plot_parts.h"

#include "power/log/chart_axes.h"
#include "power/log/chart_table.h"
#include "power/log/curve_colours.h"

#include <qcustomplot.h>

#include <array>

namespace zps {

namespace {

constexpr double BelowZero = 0.04;  // of an axis: a curve at zero does not hide in the frame

struct Curve {
    double Width;  // px
    Qt::PenStyle Stroke;
    QCPScatterStyle::ScatterShape Mark;
    double MarkSize;  // px
    double Room;
};
constexpr std::array<Curve, ChartColumns> Curves{
    Curve{2, Qt::SolidLine, QCPScatterStyle::ssDisc, 6.5, 1.15},
    Curve{1, Qt::DashLine, QCPScatterStyle::ssSquare, 4, 1.6},
};

// Puts the layers below the curves down as one picture without transparency, kept until they are
// drawn anew: blending them with each sample would cost more than drawing the curves.
class KeptPlot : public QCustomPlot {
  public:
    explicit KeptPlot(QWidget& parent) : QCustomPlot(&parent) {
        connect(this, &QCustomPlot::afterReplot, this, [this] { Below = {}; });
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        const double ratio = devicePixelRatioF();
        if (bufferDevicePixelRatio() != ratio || mPaintBuffers.isEmpty())
            return QCustomPlot::paintEvent(event);  // draws itself anew
        if (Below.isNull()) Below = DrawBelow(ratio);
        QCPPainter painter(this);
        painter.drawPixmap(0, 0, Below);
        mPaintBuffers.back()->draw(&painter);
    }

  private:
    QPixmap DrawBelow(double ratio) const {
        QImage picture(size() * ratio, QImage::Format_RGB32);
        picture.setDevicePixelRatio(ratio);
        picture.fill(palette().color(QPalette::Base));
        QCPPainter painter;
        painter.begin(&picture);
        for (auto buffer = mPaintBuffers.begin(); buffer + 1 != mPaintBuffers.end(); ++buffer)
            (*buffer)->draw(&painter);
        painter.end();
        return QPixmap::fromImage(picture);
    }

    QPixmap Below;
};

// Put down twenty times with each sample, where drawing it would cost far more.
QPixmap PictureOf(const Curve& curve, const QColor& colour) {
    const double ratio = qApp->devicePixelRatio();
    constexpr int side = 10;  // px
    QPixmap picture(qRound(side * ratio), qRound(side * ratio));
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QCPPainter painter(&picture);
    painter.setAntialiasing(curve.Mark == QCPScatterStyle::ssDisc);
    const QCPScatterStyle mark(curve.Mark, QPen(colour), colour, curve.MarkSize);
    mark.applyTo(&painter, QPen(colour));
    // The painter has moved by half a pixel to smooth, and does it again where the picture is put.
    const double middle = side / 2.0 - (painter.antialiasing() ? 0.5 : 0);
    mark.drawShape(&painter, middle, middle);
    return picture;
}

// The library takes the pixels of a mark's picture for those of the window, and would put it beside
// its place on a finely scaled screen.
class MarkedGraph : public QCPGraph {
  public:
    using QCPGraph::QCPGraph;

  protected:
    void drawScatterPlot(QCPPainter* painter, const QVector<QPointF>& places,
                         const QCPScatterStyle& style) const override {
        const QPixmap picture = style.pixmap();
        const QSizeF size = picture.deviceIndependentSize();
        const QPointF middle(size.width() / 2, size.height() / 2);
        for (const QPointF& place : places) painter->drawPixmap(place - middle, picture);
    }
};

// Below the voltage, as faint as the grid.
void ShowArea(QCPGraph& graph, bool area) {
    QColor colour = graph.pen().color();
    colour.setAlphaF(0.08F);
    graph.setBrush(area ? QBrush(colour) : Qt::NoBrush);
}

}  // namespace

// All layers but that of the curves stay one, below it.
QCustomPlot& MakePlot(QWidget& parent) {
    auto& plot = *new KeptPlot(parent);
    plot.setFocusPolicy(Qt::NoFocus);
    plot.setAttribute(Qt::WA_TransparentForMouseEvents);
    plot.yAxis2->setVisible(true);
    for (QCPAxis* axis : {plot.xAxis, plot.yAxis, plot.yAxis2}) axis->setSubTicks(false);
    plot.setNotAntialiasedElement(QCP::aeFills);
    plot.setPlottingHint(QCP::phImmediateRefresh, false);
    plot.axisRect()->setAutoMargins(QCP::msNone);
    plot.currentLayer()->setMode(QCPLayer::lmBuffered);
    QCPLayer* overlay = plot.layer(QStringLiteral("overlay"));
    overlay->setMode(QCPLayer::lmLogical);
    plot.moveLayer(plot.currentLayer(), overlay);
    return plot;
}

QCPAxis& ValueAxis(QCustomPlot& plot, std::size_t column) {
    return column == 0 ? *plot.yAxis : *plot.yAxis2;
}

QCPItemText* MakeText(QCustomPlot& plot) {
    auto* text = new QCPItemText(&plot);
    text->setClipToAxisRect(false);
    text->setPadding({6, 1, 6, 1});
    text->setVisible(false);
    return text;
}

void ColourAxis(QCPAxis& axis, const QColor& lines, const QColor& texts, const QFont& font) {
    axis.setBasePen(QPen(lines));
    axis.setTickPen(QPen(lines));
    axis.setTickLengthIn(0);
    axis.setTickLengthOut(4);
    axis.setTickLabelColor(texts);
    axis.setLabelColor(texts);
    axis.setTickLabelFont(font);
    axis.setLabelFont(font);
    axis.setLabelPadding(0);
}

void ColourPlot(QCustomPlot& plot, const QPalette& palette, const QFont& font) {
    const QColor frame = FaintText(palette, 0.5F);
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        ColourAxis(ValueAxis(plot, column), frame, CurveColour(static_cast<int>(column), palette),
                   font);
    }
    ColourAxis(*plot.xAxis, frame, palette.color(QPalette::Text), font);
    const QPen grid(FaintText(palette, 0.2F), 0, Qt::DotLine);
    for (QCPAxis* axis : {plot.xAxis, plot.yAxis}) {
        axis->grid()->setPen(grid);
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    plot.yAxis->grid()->setZeroLinePen(QPen(FaintText(palette, 0.35F)));
    plot.setBackground(palette.color(QPalette::Base));
}

void SetMargins(QCustomPlot& plot) {
    const QFontMetrics metrics(plot.xAxis->tickLabelFont());
    const int side = metrics.horizontalAdvance(QStringLiteral("0.00000")) + 14;
    const int lines = plot.xAxis->label().isEmpty() ? 1 : 2;
    plot.axisRect()->setMargins(
        {side, metrics.height() / 2 + 2, side, lines * metrics.height() + 6 * lines});
}

PlotCurves MakeCurves(QCustomPlot& plot) {
    PlotCurves made{};
    made.Breaks = plot.addGraph();
    made.Breaks->setLineStyle(QCPGraph::lsImpulse);
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        made.Values[column] =
            new MarkedGraph(plot.xAxis, &ValueAxis(plot, column));  // the plot owns it
    }
    return made;
}

void ColourCurves(const PlotCurves& curves, const QPalette& palette) {
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        const Curve& curve = Curves[column];
        const QColor colour = CurveColour(static_cast<int>(column), palette);
        curves.Values[column]->setPen(QPen(colour, curve.Width, curve.Stroke));
        curves.Values[column]->setScatterStyle(QCPScatterStyle(PictureOf(curve, colour)));
    }
    ShowArea(*curves.Values[0], true);
    curves.Breaks->setPen(QPen(palette.color(QPalette::Text), 1, Qt::DashDotLine));
}

void ShowMarks(const PlotCurves& curves, bool marks) {
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        QCPGraph& graph = *curves.Values[column];
        QPen pen = graph.pen();
        pen.setStyle(marks ? Curves[column].Stroke : Qt::SolidLine);
        graph.setPen(pen);
        QCPScatterStyle style = graph.scatterStyle();
        style.setShape(marks ? QCPScatterStyle::ssPixmap : QCPScatterStyle::ssNone);
        graph.setScatterStyle(style);
        graph.setAntialiased(marks);
    }
    ShowArea(*curves.Values[0], marks);
}

double RoomAbove(std::size_t column) {
    return Curves.at(column).Room;
}

bool PlaceValueAxis(QCPAxis& axis, double top) {
    const QCPRange range(-BelowZero * top, top);
    if (axis.range() == range) return false;
    axis.setRange(range);
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    const auto labels = StepLabels(top);
    for (int step = 0; step <= ValueSteps; ++step) {
        ticker->addTick(top / ValueSteps * step,
                        QString::fromStdString(labels[static_cast<std::size_t>(step)]));
    }
    axis.setTicker(ticker);
    return true;
}

}  // namespace zps
