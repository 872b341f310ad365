// The line under the step list: what the colours and marks of its rows mean, how to end an edit, or
// for a while what has just been done with the table.
#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>

class QStackedLayout;

namespace zps {

class StepLegend : public QWidget {
  public:
    explicit StepLegend(QWidget* parent);

    // While a row is being edited; the line keeps its size.
    void ShowEditing(bool on);
    // For some seconds, and once to screen readers.
    void Tell(const QString& text);

  private:
    void ShowPage();

    QStackedLayout* Pages;
    QLabel* lblTABLE;
    QTimer tmrTABLE;
    bool Editing = false;
};

}  // namespace zps
