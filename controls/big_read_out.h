// A value in digits as large as their box has room for.
#pragma once

#include "controls/read_out.h"

#include <QHash>
#include <QPixmap>

namespace zps {

// The size of the digits depends on the box and on the widest text that is to fit in it, never on
// the text that is shown, so that they don't jump.
//
// It changes with each reading: digits as large as these are drawn once and put down as pictures
// then, on a ground of its own, so that nothing below is painted with it.
class BigReadOut : public ReadOut {
  public:
    struct Range {
        int Least;  // px, of the digits
        int Most;
    };
    // `unit` stands behind the value, smaller and on the same base line.
    BigReadOut(const QString& name, QString unit, const QString& accessibleName,
               const QString& widest, Range pixels);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // What the box must measure for digits of so many pixels.
    QSize BoxFor(int pixels) const;

    QFont UnitFont(int pixels) const;
    int UnitWidth(int pixels) const;
    int BaseLine() const;
    const QPixmap& PictureOf(QChar digit);
    void PaintDigits(QPainter& painter);

    const QString Unit;
    const Range Pixels;
    QFont Base;
    QSizeF Text;  // the widest text, in pixels for each pixel of the digits
    QHash<QChar, QPixmap> Pictures;
};

}  // namespace zps
