// The measurement log of the main window: every sample of the runs in a grid, the last ones or
// those that the operator looks at in a chart.
#pragma once

#include "controls/paced.h"
#include "power/log/curve_tabs.h"
#include "power/log/curve_view.h"
#include "power/log/log_chart.h"
#include "power/log/log_grid.h"
#include "power/log/log_model.h"
#include "power/log/log_run.h"
#include "power/log/statistics_panel.h"

#include <QAction>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

namespace zps {

// Row 1 of the grid is the zero row of the run; each sample appends a row. Rows of earlier runs
// stay until the operator clears them. All calls are made on the window thread.
class MeasurementLog : public QWidget {
    Q_OBJECT
  public:
    explicit MeasurementLog(QWidget* parent = nullptr);
    // Before any run: the log takes the time from here; it must never go back.
    void SetClock(LogRun::Now now, WallClock wall = &std::chrono::system_clock::now) {
        Run = LogRun(std::move(now), std::move(wall));
    }

    // A run begins: the numbers start again at 1 and the chart will start empty.
    void Restart(const QString& stepCaption);
    // Asked at the beginning of each run: who is on the line.
    void SetSupply(std::function<SupplyOnLine()> supply) { Supply = std::move(supply); }
    // Tells whether the output is on; while it is, the chart is left to the samples.
    void SetRunning(std::function<bool()> outputOn) { Running = std::move(outputOn); }
    // The supply has answered. The first answer of a run notes its start.
    void NoteReply();
    // A sample: the step (0 to 255), the values in volts and amperes, and the bits that the supply
    // reported with them.
    void Append(int step, Reading volts, Reading amps, std::uint8_t status = 0);
    // What the samples of the run come to, or those of the last one until the next begins; what the
    // selected rows do. Clearing the log leaves the run's.
    const RangeSums& RunSums() const { return Run.AllSums(); }
    RangeSums SelectedSums() const;
    // Puts them on the clipboard: those of the run, and of the selected rows if there are any.
    void CopyStatistics();
    // Called when there is something else in RunSums, at most once a second.
    void OnSums(std::function<void()> told) { ToldSums = std::move(told); }
    // Removes all samples. Row 1 shows the texts. A run that is under way goes on counting.
    void Clear(const QString& stepCaption, const QString& voltText, const QString& currText);

    // The curve with its titles as it is shown now, and what is told below a picture of it.
    QWidget& Curves() { return *fraCURVES; }
    QString PictureNote() const { return fraCURVES->Shown().PictureNote(); }
    // `command` is in the context menus of the curves too.
    void OfferAtCurves(QAction& command);
    // Tells for a while, beside the log's title, that something is on the clipboard.
    void NoteCopied(const QString& what);

    // Rows of the grid, the header among them: 2 at least.
    int RowCount() const { return MSFlexGrid1->RowCount() + 1; }
    // A cell's text; row 0 holds the titles.
    QString CellText(int row, int column) const { return MSFlexGrid1->CellText(row, column); }
    // Voltage and current in `row` (1 to 20) of the chart's table.
    const ChartPoint& ChartRow(int row) const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void LayOut();
    void ShowSums();
    void ShowSelected();
    void MSFlexGrid1_Scroll();

    LogModel* Model;
    LogGrid* MSFlexGrid1;
    LogChart* MSChart1;
    CurveView* fraCURVE;  // of all samples
    CurveTabs* fraCURVES;
    QLabel* Label6;               // the number of the top visible row
    StatisticsView* lblSELECTED;  // what the selected rows come to, where fraSTATISTICS has no room
    StatisticsPanel* fraSTATISTICS;  // only where there is room
    QLabel* lblCOPIED;               // how much has been copied, for a while
    QTimer tmrCOPIED;

    LogRun Run;
    std::function<bool()> Running = [] { return false; };
    std::function<SupplyOnLine()> Supply = [] { return SupplyOnLine(); };
    std::function<void()> ToldSums = [] {};
    Paced SumsBeat{[this] { ShowSums(); }, std::chrono::seconds(1)};
};

}  // namespace zps
