#include "power/steps/table_paste.h"

#include "power/steps/step_fields.h"
#include "source/numbers.h"

#include <cmath>
#include <utility>

namespace zps {

namespace {

using Line = SplitTable::Line;

std::size_t At(int step) {
    return static_cast<std::size_t>(step);
}

class Reader {
  public:
    Reader(const SOURCE& source, int top) : Source(source), NextStep(top) {}

    // Whether all of `table` could be read.
    bool Read(const SplitTable& table) {
        FirstColumn = table.HasSteps ? StepColumn : StepColumn + 1;
        for (const Line& line : table.Lines) {
            if (!ReadLine(line)) return false;
        }
        return true;
    }

    std::vector<NewValue> Values;
    BadCell Bad{};

  private:
    bool ReadLine(const Line& line) {
        const auto step = StepOf(line);
        if (!step) return false;
        for (std::size_t value = 0; value < StepValueCount; ++value) {
            if (!ReadValue(line, *step, StepFields().at(value))) return false;
        }
        const std::size_t behind = TableColumns - FirstColumn;
        for (std::size_t cell = behind; cell < line.Cells.size(); ++cell) {
            if (!line.Cells[cell].empty()) return Refuse(line, FirstColumn + cell);
        }
        return true;
    }

    std::optional<int> StepOf(const Line& line) {
        const bool numbered = FirstColumn == StepColumn;
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
        const std::size_t place = column - FirstColumn;
        return place < line.Cells.size() ? line.Cells[place] : nothing;
    }

    bool Refuse(const Line& line, std::size_t column) {
        const bool numbered = FirstColumn == StepColumn || column > StepColumn;
        Bad = {line.Number, column, numbered ? CellOf(line, column) : std::string()};
        return false;
    }

    const SOURCE& Source;
    int NextStep;
    std::size_t FirstColumn = StepColumn;
    std::bitset<StepCount> Seen;
};

}  // namespace

ReadSteps ReadTable(std::string_view text, const SOURCE& source, int top) {
    if (text.size() > LongestTable) return TooLarge{};
    Reader reader(source, top);
    if (!reader.Read(SplitTableText(text))) return reader.Bad;
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
