// Tables of steps from spreadsheets, good, bad and hostile, and what becomes of the steps.
#include "power/steps/table_paste.h"

#include "power/steps/table_messages.h"
#include "tests/support/processor_time.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct StepTables : testing::Test, ScriptedLink {
    StepTables() {
        Rate(150, 10);
        Source.ResetSteps();
        OnReply = [this](Reply result) { Answer.Heard(result); };
        Line->Otherwise([this](const Bytes& /*block*/) { return Acknowledged; });
    }
    void Rate(float volts, float amps) {
        Source.SetMaxVolt(volts);
        Source.SetMaxCurr(amps);
        Source.ReadFrom(1, "device");
    }
    void Upload(int step) {
        Held.Select(step, AllValues(), UploadFrame(1, step, Source.WireOf(step)));
        Time.Pass(1ms);
    }
    // "03 12.50 1.000 0.00000 0.00000 163.5", step after step; or where it is bad and what is
    // there.
    std::string Read(std::string_view text, int top = 0) {
        const ReadSteps read = ReadTable(text, Source, top);
        if (std::holds_alternative<TooLarge>(read)) return "too large";
        if (std::holds_alternative<Ambiguous>(read)) return "ambiguous";
        if (const auto* bad = std::get_if<BadCell>(&read))
            return std::to_string(bad->Line) + '/' + std::to_string(bad->Column) + " " + bad->Text;
        std::string told;
        for (const auto& [step, value, shown] : std::get<std::vector<NewValue>>(read)) {
            const bool first = value == StepValue::Volt;
            if (first) told += (told.empty() ? "" : "; ") + FormatStep(step);
            told += ' ' + shown.Text;
        }
        return told;
    }
    std::size_t Paste(std::string_view text) {
        return Pasted.Store(std::get<std::vector<NewValue>>(ReadTable(text, Source, 0))).count();
    }
    std::string Marks(int count) {
        std::string marks;
        for (int step = 0; step < count; ++step)
            marks += Source.StepFlag(step) ? 'h' : Held.Unsent(step).any() ? 'u' : '-';
        return marks;
    }

    AwaitedAnswer Answer{Source, *Port, Sender, Time};
    HeldSteps Held{Source, Sender, Answer};
    TablePaste Pasted{Source, Held};
};

const std::string Captions = "STEP\tVOLTAGE(V)\tCURRENT(A)\tTIME(sec)\tSLOPE(sec)\tO.V.P(V)";

TEST_F(StepTables, ATextOfAnySpreadsheetIsReadByTheRulesOfTheFields) {
    const std::string good = "12.50 1.500 2.00000 0.10000 160.0";
    const std::pair<std::string, std::string> texts[]{
        {"12.5\t1.5\t2\t.1\t160", "40 " + good},
        {"12.5\t1.5\t2\t.1\t160\n12.5\t1.5\t2\t.1\t160\n", "40 " + good + "; 41 " + good},
        {"7\t12.5\t1.5\t2\t.1\t160", "07 " + good},
        {Captions + "\r\n07\t12.5\t1.5\t2\t.1\t160\r\n\r\n\t\t\r\n", "07 " + good},
        {"\uFEFF\n\nvoltage(v)\tCurrent(A)\tTIME(SEC)\tslope(sec)\t o.v.p(v) "
         "\r12.5\t1.5\t2\t.1\t160",
         "40 " + good},
        {" 7 \t\u00A012.5\t+1.5e0\t2.000\u00A0\t\u30000.1\t1 60.0\t\t ", "07 " + good},
        {"99\t0\t0\t50\u202F000.00\t50\t163.5", "99 0.00 0.000 50000.00000 50.00000 163.5"},
        {"1\t19.994\t1.9999\t0.001\t0\t1e2", "01 19.99 2.000 0.00100 0.00000 100.0"},
        {"", ""},
        {"\n \t \r\n", ""},
        {Captions + '\n', ""},
    };
    for (const auto& [text, read] : texts) EXPECT_EQ(Read(text, 40), read) << text;
}

// Not a single value of them is taken.
TEST_F(StepTables, TheFirstBadCellIsNamedByLineColumnAndText) {
    const std::string good = "\n3\t1\t1\t0\t0\t160\n";
    const auto row = [&](const std::string& one) { return Captions + good + one; };
    const std::pair<std::string, std::string> texts[]{
        {row("4\t150.1\t1\t0\t0\t160"), "3/1 150.1"},
        {row("4\t-0.1\t11\t0\t0\t160"), "3/1 -0.1"},
        {row("4\t1\t1e99\t0\t0\t160"), "3/2 1e99"},
        {row("4\t1\t1\t0.0005\t0\t160"), "3/3 0.0005"},
        {row("4\t1\t1\t0\t50.00001\t160"), "3/4 50.00001"},
        {row("4\t1\t1\t0\t0\t163.6"), "3/5 163.6"},
        {row("4\t1\t1\t0\t0\t"), "3/5 "},
        {row("4\t1\t\t0\t0\t160"), "3/2 "},
        {row("4\t1"), "3/2 "},
        {row("4\t1\t1\t0\t0\t160\t7"), "3/6 7"},
        {row("\n4\t1\t1\t0\t0\t160"), "3/0 "},
        {row("3\t1\t1\t0\t0\t160"), "3/0 3"},
        {row("4.5\t1\t1\t0\t0\t160"), "3/0 4.5"},
        {row("100\t1\t1\t0\t0\t160"), "3/0 100"},
        {row("-1\t1\t1\t0\t0\t160"), "3/0 -1"},
        {"STEP\tVOLTAGE(V)\tTIME(sec)\tCURRENT(A)\tSLOPE(sec)\tO.V.P(V)" + good, "1/0 STEP"},
        // Of another country, of a spreadsheet's own language, and of nobody's.
        {row("4\t12,5\t1\t0\t0\t160"), "3/1 12,5"},
        {row("4\t1\t1\t1,000.5\t0\t160"), "3/3 1,000.5"},
        {row("4\t1'000\t1\t0\t0\t160"), "3/1 1'000"},
        {row("4\t１２\t1\t0\t0\t160"), "3/1 １２"},
        {row("4\t12V\t1\t0\t0\t160"), "3/1 12V"},
        {row("4\t=1+1\t1\t0\t0\t160"), "3/1 =1+1"},
        {row("4\t#REF!\t1\t0\t0\t160"), "3/1 #REF!"},
        {row("4\t\"12\"\t1\t0\t0\t160"), "3/1 \"12\""},
        {row("4\t0x1F\t1\t0\t0\t160"), "3/1 0x1F"},
        {row("4\tnan\t1\t0\t0\t160"), "3/1 nan"},
        {row("4\tinf\t1\t0\t0\t160"), "3/1 inf"},
        {row("4\t1\x1B[2J\t1\t0\t0\t160"), "3/1 1\x1B[2J"},
        {row(std::string("4\t1\0\t1\t0\t0\t160", 15)), std::string("3/1 1\0", 6)},
        {row("4\t1\u202E2\t1\t0\t0\t160"), "3/1 1\u202E2"},
    };
    for (const auto& [text, bad] : texts) EXPECT_EQ(Read(text), bad) << text;
    EXPECT_EQ(Read("3\t1.2\t0.5\t0\t0\t"), "1/5 ");  // not five values from the left
    const std::string rows = "1\t1\t0\t0\t160\n1\t1\t0\t0\t160\n";
    EXPECT_EQ(Read(rows, 98),
              "98 1.00 1.000 0.00000 0.00000 160.0; 99 1.00 1.000 0.00000 0.00000 160.0");
    EXPECT_EQ(Read(rows, 99), "2/0 100");
}

// Five columns without captions are values only where they can't be numbered steps that have no
// over-voltage level.
TEST_F(StepTables, ATableThatMeansTwoThingsIsNotGuessed) {
    const std::string values = Captions.substr(Captions.find('\t') + 1) + '\n';
    const std::pair<std::string, std::string> texts[]{
        {"0\t12\t1.5\t2\t0.1\n1\t12\t1.5\t2\t0.1\n", "ambiguous"},
        {"5\t1\t0\t0\t160\n6\t1\t0\t0\t160\n7\t1\t0\t0\t160\n", "ambiguous"},
        {"5.0\t1\t0\t0\t160\n6.0\tx\t0\t0\t160\n", "ambiguous"},
        {"5\t1\t0\t0\t40\n", "ambiguous"},
        {"5\t1\t0\t0\t40\n10\t1\t0\t0\t40\n", "ambiguous"},
        {"99\t1\t0\t0\t60\n100\t1\t0\t0\t60\n",
         "40 99.0 1.000 0.00000 0.00000 60.0; 41 100.0 1.000 0.00000 0.00000 60.0"},
        {"5\t1\t0\t0\t160\n", "40 5.00 1.000 0.00000 0.00000 160.0"},  // no slope
        {"5\t1\t0\t0\t40\n5\t1\t0\t0\t40\n",
         "40 5.00 1.000 0.00000 0.00000 40.0; 41 5.00 1.000 0.00000 0.00000 40.0"},
        {"5\t12\t1\t0\t40\n", "1/2 12"},  // no values: 12 A
        {values + "5\t1\t0\t0\t40\n6\t1\t0\t0\t40\n",
         "40 5.00 1.000 0.00000 0.00000 40.0; 41 6.00 1.000 0.00000 0.00000 40.0"},
        {"5\t6\t1\t0\t0\t40\n6\t7\t1\t0\t0\t40\n",
         "05 6.00 1.000 0.00000 0.00000 40.0; 06 7.00 1.000 0.00000 0.00000 40.0"},
    };
    for (const auto& [text, read] : texts) EXPECT_EQ(Read(text, 40), read) << text;
    EXPECT_TRUE(PasteRefusal(Ambiguous{}).Text.contains("머리글 줄"));
}

TEST_F(StepTables, WhatIsRefusedIsToldInOneLineEachWhateverItIs) {
    const std::pair<BadCell, const char*> cells[]{
        {{3, 1, "151"}, "3행 VOLTAGE(V): 151\n설정값 범위: 0 ~ 150 V\n"},
        {{1, 3, ""}, "1행 TIME(sec): (빈칸)\n설정값 범위: 0, 0.001 ~ 50000 sec\n"},
        {{9, 0, "-1"}, "9행 STEP: -1\n설정값 범위: 00 ~ 99, 단계마다 한 번\n"},
        {{2, 7, "x"}, "2행 8번째 열: x\n설정값 범위: 열은 O.V.P(V)까지입니다\n"},
        {{2, 2, "1\x1B\u202E" + std::string(9999, '2')},
         "2행 CURRENT(A): 1\uFFFD\uFFFD222222222222222222222222222…\n설정값 범위: 0 ~ 10 A\n"},
    };
    for (const auto& [cell, text] : cells) {
        EXPECT_EQ(PasteRefusal(cell, Source).Text.toStdString(),
                  text + std::string("아무 값도 바꾸지 않았습니다."));
    }
}

TEST_F(StepTables, AMillionCellsAreRefusedAtOnceAndAsMuchAsFitsIsJudgedQuickly) {
    std::string many;
    for (int row = 0; row < 1'000'000 / 5; ++row) many += "1\t1\t0\t0\t160\n";
    const auto time = [&](const std::string& text, const std::string& read) {
        const double begun = ProcessorTime();
        EXPECT_EQ(Read(text), read);
        return ProcessorTime() - begun;  // s
    };
    EXPECT_LT(time(many, "too large"), 0.02);
    EXPECT_LT(time(many.substr(0, LongestTable / 13 * 13), "101/0 100"), 0.5);
    EXPECT_LT(time(std::string(LongestTable, '\t'), ""), 0.5);
    EXPECT_LT(time(std::string(LongestTable, '9'), "1/1 " + std::string(LongestTable, '9')), 0.5);
}

TEST_F(StepTables, ACopiedTableIsReadBackAsItIsWhateverTheRatings) {
    EXPECT_EQ(TableText(Source, 8, 9), Captions +
                                           "\n08\t0.00\t10.00\t0.00000\t0.00000\t163.5\n"
                                           "09\t0.00\t10.00\t0.00000\t0.00000\t163.5\n");
    for (const float volts : {1.9F, 12.3F, 35.F, 150.F, 250.F}) {  // some round their O.V.P. up
        Rate(volts, volts / 7);
        Source.ResetSteps();
        const std::string text = TableText(Source, 0, StepCount - 1);
        EXPECT_EQ(Paste(text), 0U) << volts;
        EXPECT_EQ(TableText(Source, 0, StepCount - 1), text);
    }
}

TEST_F(StepTables, OnlyWhatHasChangedOrWasNotHeldIsMarkedAsNotSentAndNothingGoesOut) {
    for (const int step : {0, 1, 2}) Upload(step);
    Line->ForgetWritten();
    int told = 0;
    Held.OnChange([&] { ++told; });
    const std::string before = TableText(Source, 0, 4);
    EXPECT_EQ(Paste("1\t12.5\t10\t0\t0\t163.5\n2\t0\t10\t0\t0\t163.5\n3\t0\t10\t0\t0\t163.5\n"),
              1U);
    EXPECT_EQ(Marks(5), "huhu-");
    EXPECT_EQ(Held.Unsent(1), Only(StepValue::Volt));
    EXPECT_EQ(Source.StepVolt(1), "12.50");
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(Line->Written().empty());
    EXPECT_EQ(Paste("1\t12.5\t10\t0\t0\t163.5"), 0U);  // what was before can still be got back
    ASSERT_TRUE(Pasted.CanUndo());
    EXPECT_EQ(Pasted.Undo().count(), 1U);
    EXPECT_EQ(TableText(Source, 0, 4), before);
    EXPECT_EQ(Marks(5), "huhu-");  // it may have been sent meanwhile
    EXPECT_FALSE(Pasted.CanUndo());
}

TEST_F(StepTables, AnAnswerThatComesAfterThePasteIsNotOneToItsValues) {
    Held.Select(1, AllValues(), UploadFrame(1, 1, Source.WireOf(1)));
    Paste("1\t12.5\t10\t0\t0\t163.5\n");
    Time.Pass(1s);
    EXPECT_EQ(Marks(2), "-u");
    Held.Send(1, Only(StepValue::Volt),
              ValueFrame(1, StepValue::Volt, Source.Wire(StepValue::Volt, 1)));
    Time.Pass(1s);
    EXPECT_EQ(Marks(2), "-h");
}

TEST_F(StepTables, UndoLeavesWhatWasChangedSinceAndOtherRatingsEndIt) {
    Paste("1\t12.5\t5\t0\t0\t163.5");
    Source.StoreStep(StepValue::Volt, 1, Source.FormatVolt(7));
    EXPECT_EQ(Pasted.Undo().count(), 1U);
    EXPECT_EQ(Source.StepVolt(1) + ' ' + Source.StepCurr(1), "7.00 10.00");
    for (const bool reset : {true, false}) {
        Rate(150, 10);
        Paste(reset ? "1\t120\t5\t0\t0\t163.5" : "1\t121\t5\t0\t0\t163.5");
        reset ? Pasted.Forget() : Rate(20, 5);
        EXPECT_FALSE(Pasted.CanUndo());
    }
}

TEST(TableJobs, AreRefusedWithTheReasonWhereverTheyAreOutOfPlace) {
    const TableState free{.RatingsKnown = true, .Remote = true};
    const auto with = [&](auto change) {
        TableState state = free;
        change(state);
        return state;
    };
    const std::tuple<TableState, const char*, const char*> cases[]{
        {free, "", ""},
        {with([](auto& s) { s.RatingsKnown = false; }), "DATA 확인", "DATA 확인"},
        {with([](auto& s) { s.Output = OutputState::On; }), "출력이 켜져", "출력이 켜져"},
        {with([](auto& s) { s.Output = OutputState::ReportedOn; }), "", "알 수 없습니다"},
        {with([](auto& s) { s.Output = OutputState::LeftOn; }), "", "알 수 없습니다"},
        {with([](auto& s) { s.Remote = false; }), "LOCAL", "LOCAL"},
        {with([](auto& s) { s.EditedStep = 7; }), "단계 07", "단계 07"},
    };
    for (const auto& [state, paste, send] : cases) {
        for (const auto& [job, reason] :
             {std::pair{TableJob::Paste, paste}, {TableJob::Undo, paste}, {TableJob::Send, send}}) {
            const auto objection = Objection(job, state);
            EXPECT_EQ(objection.has_value(), *reason != '\0');
            EXPECT_TRUE(!objection || objection->Text.contains(reason)) << reason;
        }
    }
}

}  // namespace
}  // namespace zps::tests
