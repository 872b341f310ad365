#include "power/log/spoken_chart.h"

#include "power/log/chart_frame.h"

#include <QAccessibleWidget>

namespace zps {

namespace {

class SpokenChart : public QAccessibleWidget {
  public:
    explicit SpokenChart(ChartFrame& chart)
        : QAccessibleWidget(&chart, QAccessible::Chart), Chart(chart) {}

    QString text(QAccessible::Text part) const override {
        return part == QAccessible::Description ? Chart.SpokenText()
                                                : QAccessibleWidget::text(part);
    }

  private:
    const ChartFrame& Chart;
};

QAccessibleInterface* MakeSpokenChart(const QString& /*className*/, QObject* object) {
    auto* chart = qobject_cast<ChartFrame*>(object);
    return chart == nullptr ? nullptr : new SpokenChart(*chart);
}

}  // namespace

void SpeakLogCharts() {
    QAccessible::installFactory(&MakeSpokenChart);
}

}  // namespace zps
