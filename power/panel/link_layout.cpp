#include "power/panel/link_layout.h"

#include "controls/flowing_row.h"
#include "controls/focus_holder.h"
#include "controls/live_tool_tip.h"
#include "controls/number_face.h"
#include "controls/tab_label.h"
#include "controls/widgets.h"

#include <QHBoxLayout>

#include <array>

namespace zps {

namespace {

constexpr int ReplyPanels = 14;

QLabel* MakeCounter(const QString& name, const QString& what) {
    auto* counter = new TabLabel(name, QStringLiteral("ZPS"), what);
    counter->setAlignment(Qt::AlignCenter);
    SetNumberFace(*counter);
    counter->setMinimumWidth(WidthFor(*counter, QStringLiteral("0000")));
    QPalette palette = counter->palette();
    const QColor ground = palette.color(QPalette::Base);
    PaintBackground(*counter, ground);
    palette = counter->palette();
    palette.setColor(QPalette::WindowText,
                     IsDark(ground) ? QColor(0xFF, 0x80, 0x80) : QColor(0xC0, 0, 0));
    counter->setPalette(palette);
    return counter;
}

struct CounterKind {
    QLabel* PowerControls::*Label;
    const char* Name;
    const char* Caption;
    const char* What;
};
constexpr std::array CounterKinds{
    CounterKind{&PowerControls::lblZPS_ERR, "lblZPS_ERR", "무응답", "무응답 횟수"},
    CounterKind{&PowerControls::lblZPS_ERR1, "lblZPS_ERR1", "길이", "길이 오류 횟수"},
    CounterKind{&PowerControls::lblZPS_ENQ, "lblZPS_ENQ", "헤더", "헤더 오류 횟수"},
};

QWidget* MakeCounters(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    for (const auto& [label, name, caption, what] : CounterKinds) {
        controls.*label = MakeCounter(QString::fromUtf8(name), QString::fromUtf8(what));
        row->addSpacing(8);
        row->addWidget(MakeLabel({}, QString::fromUtf8(caption)));
        row->addWidget(controls.*label);
    }
    return box;
}

NumberPanels* MakeBytes() {
    auto* bytes = new NumberPanels(QStringLiteral("StatusBar_RXDATA"), ReplyPanels, ReplyPanels);
    bytes->SetCaptions({{"ADDR", "STX", "LEN"},
                        {"STATUS"},
                        {"CODE"},
                        {"V", "V", "V"},
                        {"A", "A", "A"},
                        {"STEP"},
                        {"-", "-"}});
    // Wider panels would only tear the reply apart.
    bytes->setMaximumWidth(bytes->sizeHint().width() * 7 / 4);
    return bytes;
}

QString InMilliseconds(LinkQuality::Span time) {
    return QStringLiteral("%1 ms").arg(time.count());
}

// One word where nothing has been answered.
QString TimesOf(const PollCounts& polls) {
    if (!polls.Last || !polls.Median || !polls.Within99) return QStringLiteral("없음");
    return QStringLiteral("마지막 %1, 중앙값 %2, 99% %3 이내")
        .arg(InMilliseconds(*polls.Last), InMilliseconds(*polls.Median),
             InMilliseconds(*polls.Within99));
}

struct LossName {
    Fate Is;
    const char* Words;
};
constexpr std::array LossNames{
    LossName{Fate::Silent, "응답 없음"},      LossName{Fate::Empty, "빈 응답"},
    LossName{Fate::WrongLength, "길이 오류"}, LossName{Fate::WrongHeader, "헤더 오류"},
    LossName{Fate::Late, "1초 넘음"},
};

QString InWords(const QString& span, const PollCounts& polls) {
    QStringList lost;
    for (const auto& [is, words] : LossNames) {
        if (polls.Of(is) > 0)
            lost += QStringLiteral("%1 %2회").arg(QString::fromUtf8(words)).arg(polls.Of(is));
    }
    return QStringLiteral(
               "%1: 조회 %2회, 올바른 응답 %3회, 잃음 %4회%5 · "
               "응답 시간: %6")
        .arg(span)
        .arg(polls.Asked())
        .arg(polls.Of(Fate::Answered))
        .arg(polls.Lost())
        .arg(lost.isEmpty() ? QString()
                            : QStringLiteral(" (%1)").arg(lost.join(QStringLiteral(", "))),
             TimesOf(polls));
}

}  // namespace

QWidget* MakeLinkLine(PowerControls& controls) {
    auto* reply = new QWidget;
    auto* row = new QHBoxLayout(reply);
    controls.StatusBar_RXDATA = MakeBytes();
    // Outside every frame that is ever disabled or hidden, so that it can always take the focus.
    controls.cmdFOCUS = new FocusHolder(QStringLiteral("cmdFOCUS"));
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(controls.cmdFOCUS);
    row->addWidget(controls.StatusBar_RXDATA, 1000);  // up to its greatest width
    row->addStretch(1);
    auto* line = new FlowingRow(QBoxLayout::TopToBottom);
    line->layout()->setContentsMargins(3, 2, 8, 4);
    line->Add(*reply, 1);
    line->Add(*MakeCounters(controls), 0);
    return line;
}

QString QualityText(const LinkQuality& quality) {
    return InWords(QStringLiteral("지난 1분"), quality.LastMinute()) + u'\n' +
           InWords(QStringLiteral("이번 운전"), quality.WholeRun());
}

void DescribeLink(PowerControls& controls, const LinkQuality& quality) {
    const auto words = [&quality](const QString& what) {
        return what + u'\n' + QualityText(quality);
    };
    new LiveToolTip(*controls.lblPOLL, [words] { return words(QStringLiteral("통신 상태")); });
    for (const CounterKind& kind : CounterKinds) {
        const QString what = QString::fromUtf8(kind.What);
        new LiveToolTip(*(controls.*kind.Label), [words, what] { return words(what); });
    }
}

}  // namespace zps
