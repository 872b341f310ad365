#include "power/log/statistics_panel.h"

#include "controls/widgets.h"

#include <QVBoxLayout>

namespace zps {

namespace {

constexpr int Gap = 8;  // px, between the two

QWidget* AddTitle(QBoxLayout& column, const char* text) {
    auto* title = MakeLabel({}, QString::fromUtf8(text));
    Enlarge(*title, 1);
    column.addWidget(title);
    return title;
}

StatisticsView* AddGrid(QBoxLayout& column, const char* name, const char* accessible) {
    auto* grid = new StatisticsView(QString::fromUtf8(name), QString::fromUtf8(accessible),
                                    StatisticsView::Form::Grid);
    column.addWidget(grid);
    return grid;
}

}  // namespace

StatisticsPanel::StatisticsPanel() {
    setObjectName(QStringLiteral("fraSTATISTICS"));
    setAccessibleName(QStringLiteral("통계"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 0, 0, 0);
    column->setSpacing(2);
    AddTitle(*column, "운전 통계");
    Run = AddGrid(*column, "lblRUN_STATISTICS", "운전 통계");
    column->addSpacing(Gap);
    Title = AddTitle(*column, "선택한 행");
    Selected = AddGrid(*column, "lblSELECTED_STATISTICS", "선택한 행의 통계");
    column->addStretch(1);
    ShowSelected({});
}

void StatisticsPanel::FitInto(int height) {
    const int one = Title->sizeHint().height() + Run->sizeHint().height() + 2;
    setVisible(height >= one);
    Both = height >= 2 * one + Gap + 4;
}

void StatisticsPanel::ShowSelected(const RangeSums& sums) {
    Selected->Show(sums);
    const bool shown = Both && sums.Samples > 0;
    Title->setVisible(shown);
    Selected->setVisible(shown);
}

}  // namespace zps
