// All statistics of the log: of the run, and of the selected rows where there is room for both.
#pragma once

#include "power/log/statistics_view.h"

#include <QFrame>

namespace zps {

class StatisticsPanel : public QFrame {
  public:
    StatisticsPanel();

    // Shows itself and its parts as far as they fit into so much height; 0 hides it.
    void FitInto(int height);
    // Whether what is selected is shown, if anything is.
    bool HasBoth() const { return Both; }

    // It gives way to everything else: FitInto takes it away before it is cut.
    QSize minimumSizeHint() const override { return {QFrame::minimumSizeHint().width(), 0}; }

    void ShowRun(const RangeSums& sums) { Run->Show(sums); }
    void ShowSelected(const RangeSums& sums);

  private:
    StatisticsView* Run;
    QWidget* Title;  // of what is selected
    StatisticsView* Selected;
    bool Both = false;
};

}  // namespace zps
