#include "power/panel/header_layout.h"

#include "controls/colours.h"
#include "controls/flowing_row.h"
#include "controls/focus_mark.h"
#include "controls/spoken_labels.h"
#include "controls/widgets.h"

#include <QHBoxLayout>
#include <QPainter>

#include <array>
#include <utility>

namespace zps {

namespace {

QHBoxLayout* MakeRow(QWidget& box) {
    auto* row = new QHBoxLayout(&box);
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

QWidget* MakeSupply(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = MakeRow(*box);
    controls.lblZPS_MODEL =
        MakeLabel(QStringLiteral("lblZPS_MODEL"), {}, QStringLiteral("모델 이름"));
    controls.lblSPEC_VA =
        MakeLabel(QStringLiteral("lblSPEC_VA"), {}, QStringLiteral("정격 전압과 전류"));
    controls.lblLINK = MakeLabel(QStringLiteral("lblLINK"), {}, QStringLiteral("포트와 주소"));
    Enlarge(*controls.lblZPS_MODEL, 1.5);
    Enlarge(*controls.lblSPEC_VA, 1.5);
    // Of the width of the longest texts there are: what is found out moves nothing.
    const std::array<std::pair<QLabel*, QString>, 3> parts{
        {{controls.lblZPS_MODEL, QStringLiteral("ZPS-1500")},
         {controls.lblSPEC_VA, QStringLiteral("600V/200A")},
         {controls.lblLINK, QStringLiteral("COM4 · 주소 31")}}};
    for (const auto& [label, longest] : parts) {
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(longest) + 2);
        row->addWidget(label);
        row->addSpacing(10);
    }
    row->addStretch(1);
    return box;
}

constexpr int Inset = 8;  // px, of the text in its plate

// Its plate, if it has one, is as large as its text.
class EventLine : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (!text().isEmpty() && palette().isBrushSet(QPalette::Normal, QPalette::Window)) {
            const QRect words = fontMetrics().boundingRect(
                contentsRect(),
                static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextWordWrap, text());
            QPainter painter(this);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(palette().color(QPalette::Window));
            painter.drawRoundedRect(words.adjusted(-Inset, -Inset / 2, Inset, Inset / 2),
                                    Inset / 2.0, Inset / 2.0);
        }
        QLabel::paintEvent(event);
        PaintFocusMark(*this);
    }
};

QLabel* MakeEventLine() {
    constexpr int lines = 2;
    auto* line = new EventLine;
    line->setObjectName(QStringLiteral("lblNOTICE"));
    line->setAccessibleName(QStringLiteral("최근 알림"));
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    line->setContentsMargins(Inset, Inset / 2, Inset, Inset / 2);
    Enlarge(*line, 1.0);
    // However long its text is, it moves nothing beside it and nothing below.
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    line->setFixedHeight(lines * QFontMetrics(line->font()).height() + Inset);
    return line;
}

QWidget* MakeState(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = MakeRow(*box);
    controls.lblPOLL = new LinkPill(QStringLiteral("lblPOLL"), QStringLiteral("통신 상태"));
    controls.lblPOLL->setFocusPolicy(Qt::TabFocus);
    controls.lblPOLL->setAccessibleDescription(QStringLiteral("누르면 통신 기록을 보여 줍니다."));
    controls.lblNOTICE = MakeEventLine();
    controls.lblORV_URL =
        new ClickLabel(QStringLiteral("lblORV_URL"), QStringLiteral(ZPS_WEB_ADDRESS),
                       QStringLiteral("제조사 웹 주소"));
    QFont small = controls.lblORV_URL->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    controls.lblORV_URL->setFont(small);
    row->addWidget(controls.lblPOLL);
    row->addSpacing(8);
    row->addWidget(controls.lblNOTICE, 1);
    row->addSpacing(8);
    row->addWidget(controls.lblORV_URL, 0, Qt::AlignVCenter);  // no higher than its text
    return box;
}

}  // namespace

QWidget* MakeIdentity(PowerControls& controls) {
    auto* header = new FlowingRow(QBoxLayout::TopToBottom);
    header->Add(*MakeSupply(controls), 0);
    header->Add(*MakeState(controls), 1);
    return header;
}

void ShowEvent(PowerControls& controls, const PanelEvent* event) {
    const QColor amber(shade::Amber);
    QLabel& line = *controls.lblNOTICE;
    Say(line, event ? event->At.toString(QStringLiteral("HH:mm:ss  ")) + event->Text : QString());
    line.setToolTip(line.text());  // a narrow window may have no room for all of it
    QPalette colours;
    if (event && IsAlarm(event->Kind)) {
        colours.setColor(QPalette::Window, amber);
        colours.setColor(QPalette::WindowText, ReadableOn(amber));
    }
    line.setPalette(colours);
    line.setFocusPolicy(event ? Qt::TabFocus : Qt::NoFocus);  // empty it leads nowhere
}

}  // namespace zps
