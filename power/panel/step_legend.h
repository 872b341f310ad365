// The line under the step list: what the colours and marks of its rows mean, or how to end an edit.
#pragma once

#include <QWidget>

class QStackedLayout;

namespace zps {

class StepLegend : public QWidget {
  public:
    explicit StepLegend(QWidget* parent);

    // While a row is being edited; the line keeps its size.
    void ShowEditing(bool on);

  private:
    QStackedLayout* Pages;
};

}  // namespace zps
