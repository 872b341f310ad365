#include "power/log/parts_line.h"

#include "controls/number_face.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace zps {

namespace {

const QString Separator = QStringLiteral("  ·  ");

}  // namespace

PartsLine::PartsLine(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    SetNumberFace(*this);
}

void PartsLine::Show(const QString& title, const QStringList& parts) {
    if (title == Title && parts == Parts) return;
    Title = title;
    Parts = parts;
    update();
}

QString PartsLine::Whole(qsizetype parts) const {
    return (QStringList(Title) + Parts.mid(0, parts)).join(Separator);
}

QString PartsLine::Fitting() const {
    qsizetype parts = Parts.size();
    while (parts > 0 && fontMetrics().horizontalAdvance(Whole(parts)) > width()) --parts;
    return Whole(parts);
}

QSize PartsLine::sizeHint() const {
    return {200, fontMetrics().height() + 4};
}

void PartsLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), Fitting());
}

bool PartsLine::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       Title + u'\n' + Parts.join(u'\n'), this);
    return true;
}

}  // namespace zps
