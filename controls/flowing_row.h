// A row whose parts go one above the other where the window is too narrow for them.
#pragma once

#include <QBoxLayout>
#include <QFrame>

namespace zps {

// Side by side while the width allows it, else along `narrow`. Its least width is therefore that of
// its widest part.
class FlowingRow : public QFrame {
  public:
    explicit FlowingRow(QBoxLayout::Direction narrow, QWidget* parent = nullptr);

    // Adds a part, which the row then owns, on the right with this share of the width.
    void Add(QWidget& part, int stretch);

    QSize minimumSizeHint() const override;
    // What wraps in it must not make a scroll area ask for all that the window would like to have.
    bool hasHeightForWidth() const override { return false; }

  protected:
    bool event(QEvent* event) override;

  private:
    void Arrange();

    QBoxLayout* Parts;
    QBoxLayout::Direction Narrow;
};

}  // namespace zps
