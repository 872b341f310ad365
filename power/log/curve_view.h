// The whole run as a curve that is zoomed and moved.
#pragma once

#include "power/log/chart_frame.h"
#include "power/log/chart_marks.h"
#include "power/log/log_model.h"
#include "power/log/parts_line.h"
#include "power/log/run_curve_canvas.h"
#include "power/log/run_curve_window.h"

#include <QCheckBox>
#include <QTimer>

#include <optional>
#include <utility>

namespace zps {

// All samples of the log. The wheel zooms, dragging moves, the pointer shows the values of the
// sample that is nearest, a click marks it; the keys do as much. Below the curve stands what the
// samples between two marks come to, or those that are seen, unless the view is too low for both.
// While it is hidden it costs nothing.
class CurveView : public ChartFrame {
    Q_OBJECT
  public:
    // `log` outlives it.
    explicit CurveView(const LogModel& log, QWidget* parent = nullptr);

    // The log has a sample more. It is seen soon, but not each one at once.
    void Grown();
    // The log is empty.
    void Cleared();

    const CurveWindow& Shown() const { return Window; }
    QString SpokenText() const override;
    QString PictureNote() const override;

  protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    // Where the left button was pressed and the pointer has been dragged to, px of the canvas.
    struct Drag {
        int From;
        int To;
        bool Moves = false;  // it has gone far enough to be no click
    };

    CurveView(const LogModel& log, RunCurveCanvas* canvas, QWidget* parent);
    void AddActions();
    void AddAction(const char* name, const QString& text, void (CurveView::*run)());
    void tmrCURVE_Timer();

    // Something else is to be seen; what is asked for in one go is drawn once.
    void Replot();
    void Plot();
    void ShowNotes();

    void ShowAll();
    void ToggleFollow();
    void ZoomIn();
    void ZoomOut();
    void Zoom(double factor);
    void Move(double share);
    void DragTo(int x);
    void Step(int columns);
    void Pick(std::optional<std::size_t> index);
    void Mark();
    void Unmark();

    double PlaceAt(int x) const { return Window.Low() + Canvas.ShareAt(x) * Window.Width(); }
    std::optional<std::size_t> Picked() const;
    std::optional<std::size_t> Marked(std::size_t mark) const;
    QString ReadingAt(std::size_t index) const;
    std::pair<QString, QStringList> Figures() const;

    const LogModel& Log;
    const RunCurve& Curve;
    RunCurveCanvas& Canvas;
    CurveWindow Window;
    QWidget* Foot;
    PartsLine* lblCURVESTAT;
    QCheckBox* chkFOLLOW;
    QTimer tmrCURVE;  // while samples have come that are not seen yet
    ChartMarks Marks;
    std::optional<std::size_t> Cursor;  // while keys pick
    std::optional<int> PointerX;        // px of the canvas, while the pointer picks
    std::optional<Drag> Dragged;
    double Drawn = 0;    // the place of the newest sample that was there for the picture
    bool Stale = false;  // the picture shows something older
};

}  // namespace zps
