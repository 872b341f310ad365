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
    const char* Meaning;
};
constexpr std::array CounterKinds{
    CounterKind{&PowerControls::lblZPS_ERR, "lblZPS_ERR", "빈 응답", "빈 응답 횟수",
                "수신 알림은 왔으나 바이트가 하나도 없던 횟수입니다. 알림도 오지 않은 조회는 "
                "아래의 응답 없음에 듭니다."},
    CounterKind{&PowerControls::lblZPS_ERR1, "lblZPS_ERR1", "길이", "길이 오류 횟수",
                "데이터 응답이 14바이트가 아니던 횟수입니다."},
    CounterKind{&PowerControls::lblZPS_ENQ, "lblZPS_ENQ", "헤더", "헤더 오류 횟수",
                "14바이트이지만 주소, STX, 길이가 틀린 횟수입니다."},
};

QWidget* MakeCounters(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    for (const auto& [label, name, caption, what, meaning] : CounterKinds) {
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

// Where one of them is known, all are.
QString ResponseTimes(const PollCounts& polls) {
    if (!polls.Last || !polls.Median || !polls.Within99) return QStringLiteral("없음");
    return QStringLiteral("마지막 %1 ms, 중앙값 %2 ms, 99% %3 ms 이내")
        .arg(polls.Last->count())
        .arg(polls.Median->count())
        .arg(polls.Within99->count());
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
    const int overtaken = polls.Of(Fate::Overtaken);
    return QStringLiteral("%1: 조회 %2회, 올바른 응답 %3회%4, 잃음 %5회%6 · 응답 시간: %7")
        .arg(span)
        .arg(polls.Asked())
        .arg(polls.Of(Fate::Answered))
        .arg(overtaken > 0 ? QStringLiteral(", 밀려남 %1회").arg(overtaken) : QString())
        .arg(polls.Lost())
        .arg(lost.isEmpty() ? QString()
                            : QStringLiteral(" (%1)").arg(lost.join(QStringLiteral(", "))),
             ResponseTimes(polls));
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
    const auto describe = [&quality](QLabel& label, const QString& what) {
        new LiveToolTip(label, [&quality, what] { return what + u'\n' + QualityText(quality); });
    };
    describe(*controls.lblPOLL, QStringLiteral("통신 상태 (누르면 통신 기록을 보여 줍니다.)"));
    for (const CounterKind& kind : CounterKinds) {
        describe(*(controls.*kind.Label),
                 QStringLiteral("%1: %2").arg(QString::fromUtf8(kind.What),
                                              QString::fromUtf8(kind.Meaning)));
    }
}

}  // namespace zps
