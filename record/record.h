// RECORD, the window that shows what has gone over the line and what has happened.
#pragma once

#include "record/history_model.h"
#include "record/line_model.h"
#include "record/record_table.h"

#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <functional>

namespace zps {

// Takes no port and disturbs no other window. It looks for what has come some times a second while
// it is shown, and does nothing while it is not. A pause ends when it is closed.
class RECORD : public QMainWindow {
    Q_OBJECT

  public:
    // Both outlive the window.
    RECORD(const LineTrace& trace, const History& history);

    // `text` is asked while the window shows for the line at its foot.
    void SetFoot(std::function<QString()> text) { FootText = std::move(text); }

    void ShowLine() { ShowPage(*grdLINE); }
    void ShowHistory() { ShowPage(*grdHISTORY); }

    QSize sizeHint() const override;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* MakeLinePage();
    QWidget* MakeHistoryPage();
    QWidget* MakeFoot();
    QWidget* MakeFilter();
    QPushButton* MakeCopy(const QString& name, RecordTable& table);
    void ShowPage(RecordTable& table);
    bool ShowsLine() const { return Tabs->currentIndex() == 0; }
    void SetPaused(bool paused);
    void Refresh();
    void ShowState();
    void TellCopied(int rows);

    LineModel LineRows;
    HistoryModel HistoryRows;
    std::function<QString()> FootText = [] { return QString(); };
    RecordTable* grdLINE = nullptr;
    RecordTable* grdHISTORY = nullptr;
    QTabWidget* Tabs = nullptr;
    QPushButton* cmdPAUSE = nullptr;
    QLabel* lblQUALITY = nullptr;
    QLabel* lblSTATE = nullptr;
    QTimer tmrRECORD;  // while shown
    QTimer CopyTold;   // while the foot tells of a copy
};

}  // namespace zps
