// A state in a word, on a rounded ground.
#pragma once

#include <QLabel>

namespace zps {

class Pill : public QLabel {
  public:
    Pill(const QString& name, const QString& text, const QString& accessibleName);

    // The colour behind the text, which is black or white then; an invalid one for an outline in
    // the colour of the text instead.
    void Fill(const QColor& ground);
    QColor Ground() const { return Filled; }

    QSize SizeFor(const QString& text) const;
    QSize sizeHint() const override { return SizeFor(text()); }
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor Filled;
};

}  // namespace zps
