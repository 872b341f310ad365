// A frame whose contents grow with it.
#pragma once

#include <QFrame>

#include <functional>
#include <utility>
#include <vector>

namespace zps {

// They are as many times larger as it is larger than `usual` in both directions: 1 to `most`, in
// eighths, so that it settles. It has a layout. The least room that it needs is that of contents
// that have not grown: a window that has become large can become small again.
class GrowingFrame : public QFrame {
  public:
    GrowingFrame(QSize usual, double most) : Usual(usual), Most(most) {}

    // Gives `widget`, which has a font in pixels, one that grows.
    void GrowText(QWidget& widget);
    // Calls `grow` with each new factor.
    void OnGrow(std::function<void(double factor)> grow) { Grow = std::move(grow); }

    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    const QSize Usual;  // px
    const double Most;
    double Factor = 1;
    QSize Least;                                  // before it has grown, px
    std::vector<std::pair<QWidget*, int>> Texts;  // and their usual pixels
    std::function<void(double)> Grow = [](double) {};
};

}  // namespace zps
