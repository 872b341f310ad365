#include "power/log/log_grid_accessible.h"

#include "power/log/log_grid.h"

#include <QAccessibleWidget>
#include <QAction>

#include <algorithm>
#include <vector>

namespace zps {

namespace {

constexpr int RowsKept = 256;  // more than a screen has

// A cell of the grid, row 0 being the header.
class SpokenCell : public QAccessibleInterface, public QAccessibleTableCellInterface {
  public:
    SpokenCell(LogGrid& grid, int row, int column) : Grid(grid), Row(row), Column(column) {}

    bool isValid() const override { return Row <= Grid.RowCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&Grid);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text part) const override {
        return part == QAccessible::Name ? Grid.CellText(Row, Column) : QString();
    }
    void setText(QAccessible::Text /*part*/, const QString& /*text*/) override {}
    QRect rect() const override {
        const QRect cell = Grid.CellRect(Row, Column);
        return {Grid.viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }
    QAccessible::Role role() const override {
        return Row == 0 ? QAccessible::ColumnHeader : QAccessible::Cell;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = true;
        state.offscreen = !Grid.viewport()->rect().intersects(Grid.CellRect(Row, Column));
        state.invisible = state.offscreen || !Grid.isVisible();
        state.selectable = Row > 0;
        state.selected = isSelected();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type != QAccessible::TableCellInterface || Row == 0) return nullptr;
        return static_cast<QAccessibleTableCellInterface*>(this);
    }

    bool isSelected() const override { return Row > 0 && Grid.IsSelected(Row); }
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return Column; }
    int rowIndex() const override { return Row - 1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

  private:
    LogGrid& Grid;
    int Row;
    int Column;
};

// A cell that has been asked for, under the number that assistive tools know it by.
struct Slot {
    int Row = 0;
    QAccessible::Id Id = 0;
};

class SpokenGrid : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit SpokenGrid(LogGrid& grid)
        : QAccessibleWidget(&grid, QAccessible::Table), Grid(grid), Cells(SlotCount()) {}
    ~SpokenGrid() override {
        for (const Slot& slot : Cells) QAccessible::deleteAccessibleInterface(slot.Id);
    }
    SpokenGrid(const SpokenGrid&) = delete;
    SpokenGrid& operator=(const SpokenGrid&) = delete;

    // Null where there is none; row 0 is the header.
    QAccessibleInterface* CellOf(int row, int column) const;

    int childCount() const override { return LinesInSight() * columnCount(); }
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type != QAccessible::TableInterface) return QAccessibleWidget::interface_cast(type);
        return static_cast<QAccessibleTableInterface*>(this);
    }

    // Its context menu is what can be done with it.
    QStringList actionNames() const override {
        QStringList names;
        for (const QAction* action : Grid.actions()) names += NameOf(*action);
        return names + QAccessibleWidget::actionNames();
    }
    QString localizedActionName(const QString& name) const override { return name; }
    void doAction(const QString& name) override {
        for (QAction* action : Grid.actions()) {
            if (NameOf(*action) == name) return action->trigger();
        }
        QAccessibleWidget::doAction(name);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        return row < 0 ? nullptr : CellOf(row + 1, column);
    }
    int columnCount() const override { return Grid.ColumnCount(); }
    int rowCount() const override { return Grid.RowCount(); }
    QString columnDescription(int column) const override { return Grid.CellText(0, column); }
    QString rowDescription(int /*row*/) const override { return {}; }

    int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override {
        const int last = Grid.LastSelected();
        return Grid.IsSelected(last) ? last - Grid.FirstSelected() + 1 : 0;
    }
    QList<QAccessibleInterface*> selectedCells() const override { return {}; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override { return Grid.IsSelected(row + 1); }
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

  private:
    static QString NameOf(const QAction& action) { return action.text().section(u'(', 0, 0); }
    // The header is one of them.
    int LinesInSight() const {
        return std::min(Grid.RowCount(), Grid.TopRow() + Grid.VisibleRows()) - Grid.TopRow() + 2;
    }
    int RowOfLine(int line) const { return line == 0 ? 0 : Grid.TopRow() + line - 1; }
    std::size_t SlotCount() const;
    Slot& SlotOf(int row, int column) const;

    LogGrid& Grid;
    mutable std::vector<Slot> Cells;
};

std::size_t SpokenGrid::SlotCount() const {
    return static_cast<std::size_t>((RowsKept + 1) * Grid.ColumnCount());
}

// The header has slots of its own; rows that are far apart share theirs.
Slot& SpokenGrid::SlotOf(int row, int column) const {
    const int line = row == 0 ? 0 : 1 + row % RowsKept;
    return Cells.at(static_cast<std::size_t>(line * columnCount() + column));
}

QAccessibleInterface* SpokenGrid::CellOf(int row, int column) const {
    if (row < 0 || row > rowCount() || column < 0 || column >= columnCount()) return nullptr;
    Slot& slot = SlotOf(row, column);
    if (slot.Id == 0 || slot.Row != row) {
        QAccessible::deleteAccessibleInterface(slot.Id);
        slot = {row, QAccessible::registerAccessibleInterface(new SpokenCell(Grid, row, column))};
    }
    return QAccessible::accessibleInterface(slot.Id);
}

QAccessibleInterface* SpokenGrid::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    return CellOf(RowOfLine(index / columnCount()), index % columnCount());
}

QAccessibleInterface* SpokenGrid::childAt(int x, int y) const {
    const QPoint place = Grid.viewport()->mapFromGlobal(QPoint(x, y));
    for (int index = 0; index < childCount(); ++index) {
        const QRect cell = Grid.CellRect(RowOfLine(index / columnCount()), index % columnCount());
        if (cell.contains(place)) return child(index);
    }
    return nullptr;
}

int SpokenGrid::indexOfChild(const QAccessibleInterface* child) const {
    const auto* cell = dynamic_cast<const SpokenCell*>(child);
    if (cell == nullptr) return -1;
    const int row = cell->rowIndex() + 1;
    const int line = row == 0 ? 0 : row - Grid.TopRow() + 1;
    const bool inSight = row == 0 || (line > 0 && line < LinesInSight());
    return inSight ? line * columnCount() + cell->columnIndex() : -1;
}

// Those in sight speak for all: with ten million selected the list would choke the listener.
QList<int> SpokenGrid::selectedRows() const {
    QList<int> rows;
    for (int line = 1; line < LinesInSight(); ++line) {
        if (Grid.IsSelected(RowOfLine(line))) rows.append(RowOfLine(line) - 1);
    }
    return rows;
}

bool SpokenGrid::selectRow(int row) {
    if (row < 0 || row >= rowCount()) return false;
    Grid.SelectRow(row + 1);
    return true;
}

QList<QAccessibleInterface*> SpokenCell::columnHeaderCells() const {
    return {static_cast<SpokenGrid*>(parent())->CellOf(0, Column)};
}

QAccessibleInterface* MakeSpokenGrid(const QString& /*className*/, QObject* object) {
    auto* grid = qobject_cast<LogGrid*>(object);
    return grid == nullptr ? nullptr : new SpokenGrid(*grid);
}

}  // namespace

void SpeakLogGrids() {
    QAccessible::installFactory(&MakeSpokenGrid);
}

}  // namespace zps
