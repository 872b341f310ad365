// The views of the measurement log's curve, one at a time.
#pragma once

#include "power/log/chart_frame.h"

#include <QTabBar>
#include <QWidget>

#include <vector>

namespace zps {

// Tabs, with the line of the view that is shown beside them, above the view. The first one is
// shown.
class CurveTabs : public QWidget {
    Q_OBJECT
  public:
    explicit CurveTabs(QWidget* parent = nullptr);

    void Add(const QString& caption, ChartFrame& view);
    ChartFrame& Shown() const {
        return *Views.at(static_cast<std::size_t>(tabCURVE->currentIndex()));
    }

  private:
    void tabCURVE_Change(int index);

    QTabBar* tabCURVE;
    std::vector<ChartFrame*> Views;
};

}  // namespace zps
