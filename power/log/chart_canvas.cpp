// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/chart_canvas.h"

#include "controls/number_face.h"
#include "power/log/curve_colours.h"

#include <QEvent>
#include <QVBoxLayout>
#include <qcustomplot.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zps {

namespace {

// What differs between the two curves. Marks and strokes differ as well as colours, for people who
// tell colours apart badly; the room above the highest value keeps two steady curves from lying on
// one another. The first is broader, and so seen under the second where both are zero.
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

constexpr double Gap = std::numeric_limits<double>::quiet_NaN();
const QString TimeTitle = QStringLiteral("시간(초)");
constexpr int LowPicture = 130;       // px
constexpr double BelowZero = 0.04;    // of an axis: a curve at zero does not hide in the frame
constexpr double BeforeStart = 0.02;  // the same for a sample at the start

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
    mark.drawShape(&painter, side / 2.0, side / 2.0);
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

}  // namespace

struct ChartCanvas::Drawing {
    explicit Drawing(ChartCanvas& canvas);
    void SetUpCurve(std::size_t column, QCPAxis& axis);
    QCPItemText& MakeText();
    QCPItemStraightLine& MakeLine();
    void ApplyPalette(const QPalette& palette, QFont font);
    void ColourNotes(const QPalette& palette, const QFont& font);
    void ColourAxis(QCPAxis& axis, const QColor& lines, const QColor& texts, const QFont& font);
    void SetMargins(const QFontMetrics& metrics);

    void PlaceCurves(const ChartTable& table);
    bool PlaceValueAxis(std::size_t column);
    void PlaceEnds(const ChartTable& table);
    bool PlaceTimes(const TimeAxis& axis);
    void LabelTimes();
    void PlaceLine(QCPItemStraightLine& line, std::optional<double> place);
    void PlaceMark(std::size_t mark, const ChartMarks& marks, const ChartTable& table);
    void PlaceCursor(std::optional<int> row, const ChartTable& table);

    QCustomPlot& Plot;
    std::array<QCPGraph*, ChartColumns> Graphs{};
    std::array<QCPAxis*, ChartColumns> ValueAxes;
    std::array<double, ChartColumns> Tops{};
    QCPGraph* Breaks;
    std::array<QCPItemText*, ChartColumns> Ends{};
    std::array<QCPItemStraightLine*, 2> MarkLines{};
    std::array<QCPItemText*, 2> MarkNames{};
    QCPItemStraightLine* Cursor;
    QCPItemText* CursorText;
    TimeAxis Times{};
    ChartTable Table;
};

ChartCanvas::Drawing::Drawing(ChartCanvas& canvas)
    : Plot(*new QCustomPlot(&canvas)), ValueAxes{Plot.yAxis, Plot.yAxis2}, Breaks(Plot.addGraph()) {
    Plot.setFocusPolicy(Qt::NoFocus);
    Plot.setAttribute(Qt::WA_TransparentForMouseEvents);
    Plot.xAxis->setSubTicks(false);
    Plot.yAxis2->setVisible(true);
    Plot.setNotAntialiasedElement(QCP::aeFills);
    Plot.axisRect()->setAutoMargins(QCP::msNone);
    Breaks->setLineStyle(QCPGraph::lsImpulse);
    // The curves can then be drawn without the axes and their texts. Every layer of its own costs
    // the blending of a whole picture with each sample, so all others stay one, below it.
    Plot.currentLayer()->setMode(QCPLayer::lmBuffered);
    Plot.layer(QStringLiteral("overlay"))->setMode(QCPLayer::lmLogical);
    Plot.moveLayer(Plot.currentLayer(), Plot.layer(QStringLiteral("overlay")));
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        SetUpCurve(column, *ValueAxes[column]);
    }
    for (auto& line : MarkLines) line = &MakeLine();
    for (std::size_t mark = 0; mark < MarkNames.size(); ++mark) {
        MarkNames[mark] = &MakeText();
        MarkNames[mark]->setText(mark == 0 ? QStringLiteral("A") : QStringLiteral("B"));
        MarkNames[mark]->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
        MarkNames[mark]->setPositionAlignment(Qt::AlignTop | Qt::AlignHCenter);
    }
    Cursor = &MakeLine();
    CursorText = &MakeText();
    CursorText->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
    CursorText->setTextAlignment(Qt::AlignLeft);
    Plot.setPlottingHint(QCP::phImmediateRefresh, false);
    ApplyPalette(canvas.palette(), canvas.font());
}

void ChartCanvas::Drawing::SetUpCurve(std::size_t column, QCPAxis& axis) {
    axis.setSubTicks(false);
    Graphs[column] = new MarkedGraph(Plot.xAxis, &axis);  // the plot owns it
    Ends[column] = &MakeText();
    Ends[column]->setPositionAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Ends[column]->position->setAxes(Plot.xAxis, &axis);
}

QCPItemText& ChartCanvas::Drawing::MakeText() {
    auto& text = *new QCPItemText(&Plot);
    text.setClipToAxisRect(false);
    text.setPadding({6, 1, 6, 1});
    text.setVisible(false);
    return text;
}

QCPItemStraightLine& ChartCanvas::Drawing::MakeLine() {
    auto& line = *new QCPItemStraightLine(&Plot);
    line.setVisible(false);
    return line;
}

void ChartCanvas::Drawing::ColourAxis(QCPAxis& axis, const QColor& lines, const QColor& texts,
                                      const QFont& font) {
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

// Of one size, whatever is written there: the picture must not move under its axes.
void ChartCanvas::Drawing::SetMargins(const QFontMetrics& metrics) {
    const int side = metrics.horizontalAdvance(QStringLiteral("0.00000")) + 14;
    const int lines = Plot.xAxis->label().isEmpty() ? 1 : 2;
    Plot.axisRect()->setMargins(
        {side, metrics.height() / 2 + 2, side, lines * metrics.height() + 6 * lines});
}

void ChartCanvas::Drawing::ApplyPalette(const QPalette& palette, QFont font) {
    SetNumberFace(font);
    const QColor text = palette.color(QPalette::Text);
    const QColor frame = FaintText(palette, 0.5F);
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        const Curve& curve = Curves[column];
        const QColor colour = CurveColour(static_cast<int>(column), palette);
        ColourAxis(*ValueAxes[column], frame, colour, font);
        Graphs[column]->setPen(QPen(colour, curve.Width, curve.Stroke));
        Graphs[column]->setScatterStyle(QCPScatterStyle(PictureOf(curve, colour)));
        Ends[column]->setColor(colour);
        Ends[column]->setFont(font);
    }
    QColor area = CurveColour(0, palette);
    area.setAlphaF(0.08F);
    Graphs[0]->setBrush(area);
    Breaks->setPen(QPen(text, 1, Qt::DashDotLine));
    const QPen grid(FaintText(palette, 0.2F), 0, Qt::DotLine);
    ColourAxis(*Plot.xAxis, frame, text, font);
    for (QCPAxis* axis : {Plot.xAxis, Plot.yAxis}) {
        axis->grid()->setPen(grid);
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    Plot.yAxis->grid()->setZeroLinePen(QPen(FaintText(palette, 0.35F)));
    Plot.setBackground(palette.color(QPalette::Base));
    ColourNotes(palette, font);
    SetMargins(QFontMetrics(font));
    LabelTimes();
    Plot.replot(QCustomPlot::rpQueuedReplot);
}

void ChartCanvas::Drawing::ColourNotes(const QPalette& palette, const QFont& font) {
    const QColor text = palette.color(QPalette::Text);
    QColor ground = palette.color(QPalette::Base);
    Cursor->setPen(QPen(text, 1));
    for (auto* line : MarkLines) line->setPen(QPen(text, 1, Qt::DashLine));
    ground.setAlphaF(0.9F);
    for (QCPItemText* note : {CursorText, MarkNames[0], MarkNames[1]}) {
        note->setColor(text);
        note->setFont(font);
        note->setBrush(ground);
        note->setPen(QPen(FaintText(palette, 0.5F)));
    }
}

void ChartCanvas::Drawing::PlaceCurves(const ChartTable& table) {
    const QVector<double> places(Times.Places.begin(), Times.Places.end());
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        double highest = 0;
        auto& data = *Graphs[column]->data();
        data.clear();
        for (std::size_t row = 0; row < table.size(); ++row) {
            const auto& value = table[row].Values[column];
            if (std::isnan(Times.Places[row])) continue;
            const double shown = value ? static_cast<double>(value->Value) : Gap;
            data.add({Times.Places[row], shown});
            highest = std::max(highest, value ? shown : 0);
        }
        // Runs do not hang together.
        for (const double place : Times.Breaks) data.add({place, Gap});
        Tops[column] = NextTop(Tops[column], highest, Curves[column].Room);
    }
    Breaks->data()->clear();
    for (const double place : Times.Breaks) Breaks->addData(place, Tops[0]);
}

// Whether the axis has changed.
bool ChartCanvas::Drawing::PlaceValueAxis(std::size_t column) {
    QCPAxis& axis = *ValueAxes[column];
    const double top = Tops[column];
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
        Ends[column]->setText(
            QString::number(static_cast<double>(value->Value), 'f', value->Decimals));
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

void ChartCanvas::Drawing::PlaceLine(QCPItemStraightLine& line, std::optional<double> place) {
    line.setVisible(place.has_value());
    if (!place) return;
    line.point1->setCoords(*place, 0);
    line.point2->setCoords(*place, 1);
}

void ChartCanvas::Drawing::PlaceMark(std::size_t mark, const ChartMarks& marks,
                                     const ChartTable& table) {
    const auto& marked = marks.Marked()[mark];
    const auto* const found = marked ? std::find(table.begin(), table.end(), *marked) : table.end();
    std::optional<double> place;
    if (found != table.end()) place = Times.Places[static_cast<std::size_t>(found - table.begin())];
    PlaceLine(*MarkLines[mark], place);
    MarkNames[mark]->setVisible(place.has_value());
    if (place) MarkNames[mark]->position->setCoords(*place, 0);
}

void ChartCanvas::Drawing::PlaceCursor(std::optional<int> row, const ChartTable& table) {
    CursorText->setVisible(row.has_value());
    if (!row) return PlaceLine(*Cursor, std::nullopt);
    const auto place = Times.Places[static_cast<std::size_t>(*row)];
    PlaceLine(*Cursor, place);
    CursorText->setText(ReadingText(table[static_cast<std::size_t>(*row)]));
    const bool leftHalf = place < Plot.xAxis->range().center();
    CursorText->setPositionAlignment(Qt::AlignBottom | (leftHalf ? Qt::AlignLeft : Qt::AlignRight));
    CursorText->position->setCoords(place, 0.94);
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
        moved = drawing.PlaceValueAxis(column) || moved;
    }
    drawing.PlaceEnds(table);
    if (moved)
        drawing.Plot.replot(QCustomPlot::rpQueuedRefresh);
    else
        drawing.Graphs[0]->layer()->replot();
}

void ChartCanvas::Point(std::optional<int> row, const ChartMarks& marks) {
    Drawing& drawing = *Plotting;
    for (std::size_t mark = 0; mark < drawing.MarkLines.size(); ++mark) {
        drawing.PlaceMark(mark, marks, drawing.Table);
    }
    drawing.PlaceCursor(row, drawing.Table);
    drawing.Graphs[0]->layer()->replot();
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
    Plotting->Plot.xAxis->setLabel(height() < LowPicture ? QString() : TimeTitle);
    Plotting->SetMargins(QFontMetrics(Plotting->Plot.xAxis->tickLabelFont()));
    Plotting->LabelTimes();
}

}  // namespace zps
