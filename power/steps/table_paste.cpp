#include "power/steps/table_paste.h"

#include "power/steps/step_fields.h"
#include "source/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zps {

namespace {

using Line = SplitTable::Line;

std::size_t At(int step) {
    return static_cast<std::size_t>(step);
}

// The columns that a table has, by TableColumns.
struct ColumnRange {
    std::size_t First;
    std::size_t End;
};
constexpr ColumnRange WithSteps{StepColumn, TableColumns};
constexpr ColumnRange ValuesOnly{StepColumn + 1, TableColumns};
constexpr ColumnRange StepsWithoutOvp{StepColumn, TableColumns - 1};

class Reader {
  public:
    Reader(const SOURCE& source, int top, ColumnRange columns)
        : Source(source), NextStep(top), Columns(columns) {}

    // Whether all of `table` could be read.
    bool Read(const SplitTable& table) {
        return std::ranges::all_of(table.Lines,
                                   [this](const Line& line) { return ReadLine(line); });
    }

    std::vector<NewValue> Values;
    BadCell Bad{};

  private:
    bool ReadLine(const Line& line) {
        const auto step = StepOf(line);
        if (!step) return false;
        for (std::size_t column = StepColumn + 1; column < Columns.End; ++column) {
            if (!ReadValue(line, *step, StepFields().at(column - 1))) return false;
        }
        const std::size_t behind = Columns.End - Columns.First;
        for (std::size_t cell = behind; cell < line.Cells.size(); ++cell) {
            if (!line.Cells[cell].empty()) return Refuse(line, Columns.First + cell);
        }
        return true;
    }

    std::optional<int> StepOf(const Line& line) {
        const bool numbered = Columns.First == StepColumn;
        const auto number = numbered ? WholeNumber(CellOf(line, StepColumn)) : NextStep++;
        const bool good = number && *number >= 0 && *number < StepCount &&
                          *number == std::trunc(*number) &&
                          !Seen.test(At(static_cast<int>(*number)));
        if (!good) {
            Refuse(line, StepColumn);
            if (!numbered) Bad.Text = std::to_string(NextStep - 1);
            return std::nullopt;
        }
        const int step = static_cast<int>(*number);
        Seen.set(At(step));
        return step;
    }

    bool ReadValue(const Line& line, int step, const StepField& kind) {
        const std::size_t column = 1 + static_cast<std::size_t>(kind.Value);
        const std::string& cell = CellOf(line, column);
        const auto number = WholeNumber(cell);
        if (!number) return Refuse(line, column);
        const Figure shown = kind.Format(Source, *number);
        // What is on display may have been rounded up from the bound itself.
        const bool there = *number == Source.Value(kind.Value, step) &&
                           shown.Text == Source.Text(kind.Value, step);
        if (!there && OutOfRange(kind, Source, *number)) return Refuse(line, column);
        Values.push_back({step, kind.Value, shown});
        return true;
    }

    const std::string& CellOf(const Line& line, std::size_t column) const {
        static const std::string nothing;
        const std::size_t place = column - Columns.First;
        return place < line.Cells.size() ? line.Cells[place] : nothing;
    }

    bool Refuse(const Line& line, std::size_t column) {
        const bool numbered = Columns.First == StepColumn || column > StepColumn;
        Bad = {line.Number, column, numbered ? CellOf(line, column) : std::string()};
        return false;
    }

    const SOURCE& Source;
    int NextStep;
    ColumnRange Columns;
    std::bitset<StepCount> Seen;
};

bool HasFiveColumns(const SplitTable& table) {
    return !table.Lines.empty() && table.Lines.front().Columns == TableColumns - 1;
}

// Whether the first column counts steps up.
bool CountsSteps(const SplitTable& table) {
    std::optional<double> before;
    for (const Line& line : table.Lines) {
        const auto number = line.Cells.empty() ? std::nullopt : WholeNumber(line.Cells.front());
        const bool step =
            number && *number >= 0 && *number < StepCount && *number == std::trunc(*number);
        if (!step || (before && *number != *before + 1)) return false;
        before = number;
    }
    return table.Lines.size() > 1;
}

}  // namespace

ReadSteps ReadTable(std::string_view text, const SOURCE& source, int top) {
    if (text.size() > LongestTable) return TooLarge{};
    const SplitTable table = SplitTableText(text);
    const bool doubtful = !table.Captioned && HasFiveColumns(table);
    if (doubtful && CountsSteps(table)) return Ambiguous{};
    Reader reader(source, top, table.HasSteps ? WithSteps : ValuesOnly);
    if (!reader.Read(table)) return reader.Bad;
    if (doubtful && Reader(source, top, StepsWithoutOvp).Read(table)) return Ambiguous{};
    return std::move(reader.Values);
}

std::bitset<StepCount> TablePaste::Store(const std::vector<NewValue>& values) {
    std::vector<Change> changes;
    TableValues unsent;
    std::bitset<StepCount> changed;
    for (const NewValue& one : values) {
        if (!Source.StepFlag(one.Step)) unsent.at(At(one.Step)) = AllValues();
        if (TextOf(one) == one.Shown.Text) continue;
        const Figure before{Source.Value(one.Value, one.Step), TextOf(one)};
        Source.StoreStep(one.Value, one.Step, one.Shown);
        changes.push_back({{one.Step, one.Value, before}, one.Shown.Text});
        unsent.at(At(one.Step)) |= Only(one.Value);
        changed.set(At(one.Step));
    }
    Held.Changed(unsent);
    if (changed.none()) return changed;  // there is nothing to take back of it
    Last = std::move(changes);
    MaxVolt = Source.MaxVolt();
    MaxCurr = Source.MaxCurr();
    return changed;
}

bool TablePaste::CanUndo() const {
    return !Last.empty() && MaxVolt == Source.MaxVolt() && MaxCurr == Source.MaxCurr();
}

std::bitset<StepCount> TablePaste::Undo() {
    TableValues unsent;
    std::bitset<StepCount> changed;
    for (const auto& [before, after] : std::exchange(Last, {})) {
        if (TextOf(before) != after) continue;
        Source.StoreStep(before.Value, before.Step, before.Shown);
        unsent.at(At(before.Step)) |= Only(before.Value);
        changed.set(At(before.Step));
    }
    Held.Changed(unsent);
    return changed;
}

}  // namespace zps
