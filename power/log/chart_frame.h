// What the charts of the measurement log look like around their curves.
#pragma once

#include <QLabel>
#include <QWidget>

namespace zps {

// A frame about the canvas, broader while the chart has the focus. The titles of the axes with the
// difference of two marked samples between them are a line of its own, Head, which whoever shows
// the chart lays out above it.
class ChartFrame : public QWidget {
    Q_OBJECT
  public:
    QWidget& Head() { return *Line; }

    // What a screen reader says of it now. It is told only of what its user does, never of samples.
    virtual QString SpokenText() const = 0;
    // What is told below a picture of it, because there was no room for it.
    virtual QString PictureNote() const { return {}; }

  protected:
    // The names of the labels begin with `prefix`. The canvas becomes the chart's.
    ChartFrame(const QString& prefix, QWidget& canvas, QWidget* parent);

    // As much of it as there is room for, its beginning first.
    void ShowDifference(const QString& whole);
    // SpokenText says something else, by the user's doing.
    void Speak();

    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    static constexpr int FrameWidth = 2;  // px; the frame is as wide while the chart has the focus

  private:
    void ColourTitles();
    void ElideDifference();

    QWidget* Line;
    QLabel* Volt;
    QLabel* Difference;
    QLabel* Curr;
    QWidget& Canvas;
    QString Whole;
};

}  // namespace zps
