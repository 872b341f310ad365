// A line of which as many parts are seen as there is room for.
#pragma once

#include <QStringList>
#include <QWidget>

namespace zps {

// No part is ever cut short, for a number without its last digits is another number. Whoever points
// at it is told all of it. Another text moves nothing and costs no lay-out.
class PartsLine : public QWidget {
  public:
    explicit PartsLine(const QString& name, QWidget* parent = nullptr);

    // `title` is always there.
    void Show(const QString& title, const QStringList& parts);
    // Whether there is room for all of it.
    bool ShowsAll() const { return Fitting() == Whole(Parts.size()); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QString Whole(qsizetype parts) const;
    QString Fitting() const;

    QString Title;
    QStringList Parts;
};

}  // namespace zps
