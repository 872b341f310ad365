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
    // The same for `root` and all in it that does not grow with a frame of its own; the bounds that
    // their sizes have been given grow as well.
    void GrowAll(QWidget& root);
    // Calls `grow` with each new factor.
    void OnGrow(std::function<void(double factor)> grow) { Grow = std::move(grow); }

    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

    // What is compared with the usual size.
    virtual QSize Room() const { return size(); }

  private:
    struct Part {
        QWidget* Widget;
        int Pixels;   // of its text, usually
        QSize Least;  // the bounds of its size; none where they are invalid
        QSize Most;
    };
    static void GrowPart(const Part& part, double factor);

    const QSize Usual;  // px
    const double Most;
    double Factor = 1;
    QSize Least;  // before it has grown, px
    std::vector<Part> Parts;
    std::function<void(double)> Grow = [](double) {};
};

}  // namespace zps
