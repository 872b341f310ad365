// The statistics of samples on the screen.
#pragma once

#include "power/log/range_sums.h"

#include <QRegion>
#include <QString>
#include <QWidget>

#include <array>
#include <cstdint>

class QPainter;

namespace zps {

// As one line, of which a narrow view shows what matters most, or as a grid of all figures. It
// keeps its size whatever it shows and paints only what has changed, so that figures that change
// with each sample cost no lay-out and little paint. Reached with Tab; screen readers are told when
// they ask, never by themselves.
class StatisticsView : public QWidget {
    Q_OBJECT
  public:
    enum class Form : std::uint8_t { Line, Grid };
    // A line begins with `lead`.
    StatisticsView(const QString& name, const QString& accessibleName, Form form,
                   QString lead = {});

    void Show(const RangeSums& sums);
    // All of what it shows, in words.
    QString Words() const;

    // A line, or the grid with its widest figures.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

  private:
    // Captions and figures; below them lines.
    static constexpr int Rows = 4;
    static constexpr int Columns = 5;

    bool HasGrid() const { return As == Form::Grid; }

    int LineHeight() const;
    QRect CellRect(int row, int column) const;
    QRect LineRect(int line) const;
    QString CellText(int row, int column) const;
    QString LineText() const;
    QColor CellColour(int row, int column) const;
    void ShowTexts();
    void ShowGrid();
    void PaintGrid(QPainter& painter, const QRegion& region);
    void ShowText(QString& shown, const QString& text, const QRect& at);

    const Form As;
    const QString Lead;
    RangeSums Sums;
    std::array<std::array<QString, Columns>, Rows> Cells;
    std::array<QString, 2> Lines;  // only the first without a grid
};

}  // namespace zps
