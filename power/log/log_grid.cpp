#include "power/log/log_grid.h"

#include "controls/number_face.h"
#include "power/log/log_model.h"

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace zps {

namespace {

constexpr int LeastColumnWidth = 91;  // px
constexpr int SuggestedRows = 12;
constexpr int MinRows = 4;

}  // namespace

LogGrid::LogGrid(LogModel& model, QWidget* parent)
    : QAbstractScrollArea(parent),
      Model(model),
      Copy(model, *this),
      ScrollBar(new StillScrollBar(Qt::Vertical)) {
    setVerticalScrollBar(ScrollBar);
    verticalScrollBar()->setAccessibleName(QStringLiteral("측정 데이터 표 이동"));
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    AddCopyActions();
    SetNumberFace(*this);
    MeasureColumns();
    connect(&Copy, &LogCopy::Copied, this, &LogGrid::Copied);
    connect(&model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first) { RowsChanged(first + 1); });
    connect(&model, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int first) { RowsChanged(first + 1); });
    connect(&model, &QAbstractItemModel::dataChanged, viewport(), qOverload<>(&QWidget::update));
}

void LogGrid::AddCopyActions() {
    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* copy = new QAction(QStringLiteral("복사(&C)"), this);
    copy->setShortcut(QKeySequence::Copy);
    connect(copy, &QAction::triggered, this, [this] {
        if (Chosen) Copy.Start(FirstSelected() - 1, LastSelected() - 1);
    });
    auto* all = new QAction(QStringLiteral("모두 선택(&A)"), this);
    all->setShortcut(QKeySequence::SelectAll);
    connect(all, &QAction::triggered, this, &LogGrid::SelectAll);
    for (QAction* action : {copy, all}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        addAction(action);
    }
}

QString LogGrid::CellText(int row, int column) const {
    return row == 0 ? Model.headerData(column, Qt::Horizontal).toString()
                    : Model.index(row - 1, column).data().toString();
}

int LogGrid::TopRow() const {
    return verticalScrollBar()->value() + 1;
}

int LogGrid::VisibleRows() const {
    return std::max(1, viewport()->height() / RowHeight() - 1);
}

int LogGrid::RowHeight() const {
    return fontMetrics().height() + 4;
}

QRect LogGrid::CellRect(int row, int column) const {
    const int line = row == 0 ? 0 : row - TopRow() + 1;
    return {column * ColumnWidth, line * RowHeight(), ColumnWidth, RowHeight()};
}

void LogGrid::MeasureColumns() {
    ColumnWidth = LeastColumnWidth;
    const auto makeRoomFor = [this](const QString& text) {
        const int needed = fontMetrics().horizontalAdvance(text) + 2 * CellMargin;
        ColumnWidth = std::max(ColumnWidth, needed);
    };
    makeRoomFor(QStringLiteral("0000000.00"));  // 115 days in seconds
    for (int column = 0; column < Model.columnCount(); ++column) makeRoomFor(CellText(0, column));
}

int LogGrid::RowAt(int y) const {
    const int line = y >= 0 ? y / RowHeight() : -1;
    return std::clamp(TopRow() + line - 1, 1, RowCount());
}

QSize LogGrid::SizeForRows(int rows) const {
    const int frame = 2 * frameWidth();
    return {Model.columnCount() * ColumnWidth + verticalScrollBar()->sizeHint().width() + frame,
            (rows + 1) * RowHeight() + frame};
}

QSize LogGrid::sizeHint() const {
    return SizeForRows(SuggestedRows);
}

QSize LogGrid::minimumSizeHint() const {
    return SizeForRows(MinRows);
}

QRect LogGrid::RowRect(int row) const {
    return CellRect(row, 0).united(CellRect(row, Model.columnCount() - 1));
}

void LogGrid::RowsChanged(int first) {
    Anchor = std::min(Anchor, RowCount());
    Current = std::min(Current, RowCount());
    UpdateScrollBar();
    QRect changed = viewport()->rect();
    changed.setTop(RowRect(std::max(first, TopRow())).top());
    viewport()->update(changed);
}

void LogGrid::UpdateScrollBar() {
    ScrollBar->ShowRows(RowCount(), VisibleRows());
}

// Rows that stay in sight are moved as a picture: a sample then costs the painting of its own row.
void LogGrid::scrollContentsBy(int /*dx*/, int dy) {
    QRect rows = viewport()->rect();
    rows.setTop(RowHeight());
    viewport()->scroll(0, dy * RowHeight(), rows);
    Q_EMIT Scrolled();
}

void LogGrid::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollBar();
}

bool LogGrid::event(QEvent* event) {
    const bool done = QAbstractScrollArea::event(event);
    switch (event->type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            viewport()->update();
            break;
        case QEvent::FontChange:
        case QEvent::StyleChange:
            MeasureColumns();
            updateGeometry();
            UpdateScrollBar();
            break;
        default:
            break;
    }
    return done;
}

void LogGrid::SelectAll() {
    Anchor = 1;
    Current = RowCount();
    Chosen = true;
    viewport()->update();
    DescribeSelection();
}

void LogGrid::MoveTo(int row, bool extend) {
    Current = std::clamp(row, 1, RowCount());
    if (!extend) Anchor = Current;
    Chosen = true;
    const int top = std::clamp(TopRow(), Current - VisibleRows() + 1, Current);
    verticalScrollBar()->setValue(top - 1);
    viewport()->update();
    DescribeSelection();
}

// What a screen reader says: the current row, cell by cell.
void LogGrid::DescribeSelection() {
    QStringList cells;
    for (int column = 0; column < Model.columnCount(); ++column) {
        cells << CellText(0, column) + u' ' + CellText(Current, column);
    }
    setAccessibleDescription(cells.join(QStringLiteral(", ")));
    Q_EMIT Selected();
}

void LogGrid::keyPressEvent(QKeyEvent* event) {
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_Up:
            return MoveTo(Current - 1, extend);
        case Qt::Key_Down:
            return MoveTo(Current + 1, extend);
        case Qt::Key_PageUp:
            return MoveTo(Current - VisibleRows(), extend);
        case Qt::Key_PageDown:
            return MoveTo(Current + VisibleRows(), extend);
        case Qt::Key_Home:
            return MoveTo(1, extend);
        case Qt::Key_End:
            return MoveTo(RowCount(), extend);
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

// A click of the right button opens the menu for the rows that are selected.
void LogGrid::mousePressEvent(QMouseEvent* event) {
    const int y = event->position().toPoint().y();
    const int row = RowAt(y);
    const bool onRow = y >= RowHeight() && CellRect(row, 0).contains(0, y);
    if (event->button() != Qt::LeftButton || !onRow) return;
    MoveTo(row, event->modifiers().testFlag(Qt::ShiftModifier));
}

void LogGrid::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton))
        MoveTo(RowAt(event->position().toPoint().y()), true);
}

}  // namespace zps
