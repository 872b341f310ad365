// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/band_curve.h"

#include <qcustomplot.h>

#include <algorithm>

namespace zps {

namespace {

class BandCurve : public QCPAbstractPlottable {
  public:
    // The plot owns it; `seen` outlives its drawing.
    BandCurve(const QCPGraph& graph, std::size_t column, const Trace& seen)
        : QCPAbstractPlottable(graph.keyAxis(), graph.valueAxis()),
          Graph(graph),
          Column(column),
          Seen(seen) {
        setAntialiased(false);
    }

    double selectTest(const QPointF& /*pos*/, bool /*only*/, QVariant* /*details*/) const override {
        return -1;
    }
    QCPRange getKeyRange(bool& found, QCP::SignDomain /*in*/) const override {
        found = false;
        return {};
    }
    QCPRange getValueRange(bool& found, QCP::SignDomain /*in*/,
                           const QCPRange& /*keys*/) const override {
        found = false;
        return {};
    }

  protected:
    // In whole pixels, which the toolkit fills fastest, and with nothing below: area that is filled
    // column by column would take twice as long as the curve.
    void draw(QCPPainter* painter) override {
        const QColor colour = Graph.pen().color();
        const int least = qRound(Graph.pen().widthF());
        int end = 0;
        for (const Band& band : Seen.Bands) {
            const int x = qRound(keyAxis()->coordToPixel(band.Place));
            const int left = band.Continues && end > 0 ? end : x;
            end = qRound(keyAxis()->coordToPixel(band.Place + Seen.BandWidth));
            const int top = PixelOf(band.Reach.Most);
            const int height = std::max(PixelOf(band.Reach.Least) - top, least);
            painter->fillRect(QRect(left, top, end - left, height), colour);
        }
    }
    void drawLegendIcon(QCPPainter* /*painter*/, const QRectF& /*rect*/) const override {}

  private:
    int PixelOf(const std::array<float, ChartColumns>& values) const {
        return qRound(valueAxis()->coordToPixel(static_cast<double>(values.at(Column))));
    }

    const QCPGraph& Graph;
    std::size_t Column;
    const Trace& Seen;
};

}  // namespace

void AddBands(QCPGraph& graph, std::size_t column, const Trace& seen) {
    new BandCurve(graph, column, seen);  // the plot owns it
}

}  // namespace zps
