#include "power/steps/table_text.h"

#include "source/numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zps {

namespace {

using Line = SplitTable::Line;

// In UTF-8: no-break, narrow no-break, figure, thin and ideographic space, and the mark that some
// programs put in front of a text.
constexpr std::array<std::string_view, 6> OtherBlanks{"\u00A0", "\u202F", "\u2007",
                                                      "\u2009", "\u3000", "\uFEFF"};

std::string WithPlainBlanks(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const auto* blank = std::ranges::find_if(
            OtherBlanks, [text](std::string_view one) { return text.starts_with(one); });
        const bool found = blank != OtherBlanks.end();
        plain += found ? ' ' : text.front();
        text.remove_prefix(found ? blank->size() : 1);
    }
    return plain;
}

// Takes what stands before `mark` off `text`, and the mark with it.
std::string_view TakeUpTo(char mark, std::string_view& text) {
    const std::size_t end = std::min(text.find(mark), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

std::string Trimmed(std::string_view cell) {
    const std::size_t first = cell.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(cell.substr(first, cell.find_last_not_of(' ') - first + 1));
}

std::vector<std::string> CellsOf(std::string_view line) {
    std::vector<std::string> cells;
    std::size_t filled = 0;
    while (!line.empty()) {
        cells.push_back(Trimmed(TakeUpTo('\t', line)));
        if (!cells.back().empty()) filled = cells.size();
    }
    cells.resize(filled);
    return cells;
}

// A carriage return ends a line by itself, or together with the line feed behind it.
std::vector<Line> LinesOf(std::string_view text) {
    std::vector<Line> lines;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view line = text.substr(0, end);
        const auto tabs = std::ranges::count(line, '\t');
        lines.push_back({++number, CellsOf(line), static_cast<std::size_t>(tabs) + 1});
        const bool both = text.substr(end).starts_with("\r\n");
        text.remove_prefix(std::min(end + (both ? 2 : 1), text.size()));
    }
    return lines;
}

void DropBlankLines(std::vector<Line>& lines) {
    const auto filled = [](const Line& line) { return !line.Cells.empty(); };
    lines.erase(lines.begin(), std::ranges::find_if(lines, filled));
    while (!lines.empty() && !filled(lines.back())) lines.pop_back();
}

std::string Lowered(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

// Whether `cells` are the captions from `first` on.
bool AreCaptions(const std::vector<std::string>& cells, std::size_t first) {
    if (cells.size() != TableColumns - first) return false;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (Lowered(cells[i]) != Lowered(TableCaption(first + i))) return false;
    }
    return true;
}

}  // namespace

std::string TableCaption(std::size_t column) {
    return column == StepColumn ? StepCaption : ValueCaptions.at(column - 1);
}

std::string TableText(const StepTable& steps, int first, int last) {
    std::string text;
    for (std::size_t column = 0; column < TableColumns; ++column)
        text += TableCaption(column) + (column + 1 < TableColumns ? '\t' : '\n');
    for (int step = first; step <= last; ++step) {
        text += FormatStep(step);
        for (std::size_t value = 0; value < StepValueCount; ++value)
            text += '\t' + steps.Text(static_cast<StepValue>(value), step);
        text += '\n';
    }
    return text;
}

SplitTable SplitTableText(std::string_view text) {
    SplitTable table;
    table.Lines = LinesOf(WithPlainBlanks(text));
    DropBlankLines(table.Lines);
    if (table.Lines.empty()) return table;
    const std::vector<std::string>& first = table.Lines.front().Cells;
    const bool values = AreCaptions(first, StepColumn + 1);
    table.Captioned = values || AreCaptions(first, StepColumn);
    table.HasSteps = !values && table.Lines.front().Columns >= TableColumns;
    if (table.Captioned) table.Lines.erase(table.Lines.begin());
    return table;
}

}  // namespace zps
