#include "record/record_table.h"

#include "controls/copy_text.h"
#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QAction>
#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>
#include <vector>

namespace zps {

RecordTable::RecordTable(const QString& name, const QString& accessibleName, RecordModel& model)
    : Model(model) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    verticalScrollBar()->setAccessibleName(accessibleName + QStringLiteral(" 이동"));
    horizontalScrollBar()->setAccessibleName(accessibleName + QStringLiteral(" 좌우 이동"));
    QFont face = font();
    const QStringList words = face.families();
    SetNumberFace(face);
    face.setFamilies(face.families() + words);
    setFont(face);
    setModel(&model);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setAlternatingRowColors(true);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setStretchLastSection(true);
    SizeColumns();
    AddActions();
}

void RecordTable::SizeColumns() {
    for (int column = 0; column < Model.columnCount(); ++column) {
        const auto text = [&](int role) {
            return Model.headerData(column, Qt::Horizontal, role).toString();
        };
        setColumnWidth(column, std::max(WidthFor(*this, text(RecordModel::SampleRole)),
                                        WidthFor(*this, text(Qt::DisplayRole))));
    }
}

void RecordTable::AddActions() {
    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* copy = new QAction(QStringLiteral("복사(&C)"), this);
    copy->setShortcut(QKeySequence::Copy);
    connect(copy, &QAction::triggered, this, &RecordTable::Copy);
    auto* all = new QAction(QStringLiteral("모두 선택(&A)"), this);
    all->setShortcut(QKeySequence::SelectAll);
    connect(all, &QAction::triggered, this, &RecordTable::selectAll);
    for (QAction* action : {copy, all}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        addAction(action);
    }
}

bool RecordTable::AtEnd() const {
    return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

// What stood at the end stands there still.
void RecordTable::resizeEvent(QResizeEvent* event) {
    const bool atEnd = AtEnd();
    QTableView::resizeEvent(event);
    if (atEnd) ShowEnd();
}

void RecordTable::Follow() {
    QScrollBar& bar = *verticalScrollBar();
    const bool atEnd = AtEnd();
    const int rows = Model.rowCount();
    const int gone = Model.Follow();
    if (atEnd && (gone > 0 || Model.rowCount() != rows))
        ShowEnd();
    else if (gone > 0)
        bar.setValue(bar.value() - gone);  // what is looked at stays where it is
}

void RecordTable::Copy() {
    Follow();
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) rows.push_back(index.row());
    std::ranges::sort(rows);
    if (rows.empty())
        for (int row = 0; row < Model.rowCount(); ++row) rows.push_back(row);
    QString text = LineOf(-1);
    for (const int row : rows) text += LineOf(row);
    CopyText(text.toUtf8());
    Q_EMIT Copied(static_cast<int>(rows.size()));
}

// The titles of the columns for row -1.
QString RecordTable::LineOf(int row) const {
    QStringList cells;
    for (int column = 0; column < Model.columnCount(); ++column) {
        cells << (row < 0 ? Model.headerData(column, Qt::Horizontal, Qt::DisplayRole)
                          : Model.index(row, column).data(RecordModel::CopiedRole))
                     .toString();
    }
    return cells.join(u'\t') + u'\n';
}

// All rows are of one height: nobody need look into one to know.
int RecordTable::sizeHintForRow(int /*row*/) const {
    return verticalHeader()->defaultSectionSize();
}

}  // namespace zps
