// A scroll bar that is painted only when it looks otherwise.
#pragma once

#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>

namespace zps {

// In a long table that follows its newest row the slider hardly ever moves by a pixel, while its
// range and value change with each row.
class StillScrollBar : public QScrollBar {
  public:
    using QScrollBar::QScrollBar;

    // There are so many rows, and `seen` of them have room. At the end it stays at the end.
    void ShowRows(int rows, int seen) {
        const bool following = value() == maximum();
        Moving = true;
        setPageStep(seen);
        setRange(0, std::max(0, rows - seen));
        if (following) setValue(maximum());
        Moving = false;
        PaintIfMoved();
    }

  protected:
    void sliderChange(SliderChange /*change*/) override {
        if (!Moving) PaintIfMoved();
    }

  private:
    void PaintIfMoved() {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect slider = style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                     QStyle::SC_ScrollBarSlider, this);
        if (slider == Slider) return;
        Slider = slider;
        update();
    }

    QRect Slider;
    bool Moving = false;
};

}  // namespace zps
