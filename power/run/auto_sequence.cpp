#include "power/run/auto_sequence.h"

#include "controls/colours.h"
#include "controls/number_face.h"
#include "source/numbers.h"

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace zps {

namespace {

constexpr int EntryLength = 3;    // two digits and ">"
constexpr int LongestText = 756;  // 252 steps: what the frame's length byte can tell
constexpr int EndOfSequence = 0xFF;
constexpr int CountAddress = 1;  // the count always goes to address 1
constexpr double LargestCount = 50000;

Message StepMessage(const QString& text) {
    return {MessageIcon::Information, QStringLiteral("Auto Step Error"), text};
}

bool IsDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// The step numbers of a text such as "03>07>"; none where it is not made of two digits and a ">"
// each.
std::optional<std::vector<int>> ReadSequence(const QString& text) {
    std::vector<int> steps;
    for (int at = 0; at + EntryLength <= text.size(); at += EntryLength) {
        const bool good =
            IsDigit(text[at]) && IsDigit(text[at + 1]) && text[at + 2] == QLatin1Char('>');
        if (!good) return std::nullopt;
        steps.push_back(text.mid(at, 2).toInt());
    }
    return steps;
}

}  // namespace

AutoSequence::AutoSequence(PowerParts& parts, Entries& fields, AutoProgress& progress)
    : Parts(parts), Fields(fields), Progress(progress) {
    Parts.Controls.txtPAUTOSTEP->setMaxLength(LongestText);
    Parts.Controls.txtPAUTOSTEP->setPlaceholderText(QStringLiteral("예: 00>01>02>"));
    Parts.Controls.txtPAUTOCOUNT->SetUnit(QStringLiteral("회"));
    for (EntryField* box : {Parts.Controls.txtPAUTOSTEP, Parts.Controls.txtPAUTOCOUNT})
        SetNumberFace(*box);
    Repaint();
    Entries::Rules sequence;
    sequence.GotFocus = [this] { Told.clear(); };
    sequence.Change = [this] { txtPAUTOSTEP_Change(); };
    sequence.KeyPress = [this](QChar key) { txtPAUTOSTEP_KeyPress(key); };
    sequence.LostFocus = [this] { txtPAUTOSTEP_LostFocus(); };
    sequence.Committed = [this] {
        Told.clear();
        txtPAUTOSTEP_LostFocus();
    };
    Fields.Connect(*Parts.Controls.txtPAUTOSTEP, std::move(sequence));
    Entries::Rules count;
    count.LostFocus = count.Committed = [this] { txtPAUTOCOUNT_LostFocus(); };
    Fields.Connect(*Parts.Controls.txtPAUTOCOUNT, std::move(count));
}

void AutoSequence::Reset() {
    Told.clear();
    Parts.Controls.txtPAUTOSTEP->Write({});
    Parts.Controls.txtPAUTOCOUNT->Write(QStringLiteral("0"));
}

void AutoSequence::Repaint() {
    for (EntryField* box : {Parts.Controls.txtPAUTOSTEP, Parts.Controls.txtPAUTOCOUNT}) {
        QPalette palette = QApplication::palette(box);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QColor faint = FaintOn(palette.color(group, QPalette::Base));
            palette.setColor(group, QPalette::PlaceholderText, faint);
            if (group == QPalette::Disabled) palette.setColor(group, QPalette::Text, faint);
        }
        box->setPalette(palette);
    }
}

void AutoSequence::txtPAUTOSTEP_Change() {
    EntryField& field = *Parts.Controls.txtPAUTOSTEP;
    if (field.text().size() % EntryLength != EntryLength - 1) return;
    field.setText(field.text() + QLatin1Char('>'));
    field.end(false);
}

void AutoSequence::txtPAUTOSTEP_KeyPress(QChar key) {
    constexpr QChar deleteKey(0x7F);  // the toolkit gives it a character, though it types none
    if (IsDigit(key) || key == deleteKey) return;
    Fields.Refuse(*Parts.Controls.txtPAUTOSTEP, StepMessage(QStringLiteral("STEP 설정 오류!!!")));
}

void AutoSequence::txtPAUTOSTEP_LostFocus() {
    EntryField& field = *Parts.Controls.txtPAUTOSTEP;
    const QString text = field.text();
    if (text.size() % EntryLength != 0) {
        Fields.Refuse(field, StepMessage(QStringLiteral("STEP NO 설정 오류!!!")));
        return;
    }
    const auto steps = ReadSequence(text);
    if (!steps) {
        Fields.Refuse(field, StepMessage(QStringLiteral("STEP 설정 오류!!!")));
        return;
    }
    // A supply of unknown ratings is not the one that has got the steps.
    const bool held = std::all_of(steps->begin(), steps->end(), [this](int step) {
        return Parts.Source.RatingsKnown() && Parts.Source.StepFlag(step);
    });
    if (!held) {
        ShowUnsentSteps(text);
        return;
    }
    Told.clear();
    FrameBuilder builder(Parts.Source.PowerAddr);
    builder.Command(letter::Sequence).Append(*steps).Append({EndOfSequence});
    Parts.Sender.Send(builder.Finish(), ExpectAck);
    Progress.SequenceSent(*steps);
}

// No error of the entry: whatever took the focus away goes on. The focus comes back to the box; the
// next thing that takes it away is not told the same again.
void AutoSequence::ShowUnsentSteps(const QString& sequence) {
    if (std::exchange(Told, sequence) == sequence) return;
    Parts.Boxes.Show(
        &Parts.Window,
        {MessageIcon::None, QStringLiteral("AUTO SEQUENCE DATA SET ERROR"),
         QStringLiteral(" AUTO STEP에 현재 설정된 각 STEP의 정보가 ZPS로 송신되지않았습니다.!!\r\n"
                        " AUTO STEP을 설정하기 전에 각 STEP을 Click하여 STEP정보를 ZPS로 먼저 "
                        "송신하세요...\r\n"
                        " 송신된 STEP은 하늘색으로 표시됩니다...")});
    Fields.ReturnTo(*Parts.Controls.txtPAUTOSTEP);
}

void AutoSequence::txtPAUTOCOUNT_LostFocus() {
    EntryField& field = *Parts.Controls.txtPAUTOCOUNT;
    if (field.text().toStdString() == Fields.TextBefore()) return;
    if (field.text().isEmpty()) field.Write(QStringLiteral("0"));
    const double count = LeadingNumber(field.text().toStdString());
    if (count < 0 || count > LargestCount) {
        Fields.Refuse(field,
                      {MessageIcon::Information, QStringLiteral("COUNT 설정오류"),
                       QStringLiteral("COUNT SETTING값 범위 초과\r\n설정값 범위=0~%1cycle")
                           .arg(QString::fromStdString(ShortestText(Parts.Source.MaxVolt())))});
        return;
    }
    const std::string text = FormatFixed(count, 0);
    field.Write(QString::fromStdString(text));
    if (Fields.Open() == &field) Fields.Accept(field);
    FrameBuilder builder(CountAddress);
    const std::int32_t cycles = RoundHalfEven(std::round(count));
    builder.Command(letter::Count).AppendWord(cycles);
    Parts.Sender.Send(builder.Finish(), ExpectAck);
    if (Parts.Source.PowerAddr == CountAddress) Progress.CountSent(cycles);
}

}  // namespace zps
