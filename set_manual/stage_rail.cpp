#include "set_manual/stage_rail.h"

#include "controls/colours.h"
#include "controls/faded.h"

#include <QHBoxLayout>
#include <QPainter>

namespace zps {

namespace {

constexpr std::array Names{"응답", "원격", "초기화", "정격"};

struct StateLook {
    const char* Word;
    Sign Mark;
    QRgb OnLight;
    QRgb OnDark;
};

StateLook LookOf(StageState state) {
    switch (state) {
        case StageState::Running:
            return {"진행 중", Sign::Running, shade::Blue, 0xFF7AB8FF};
        case StageState::Done:
            return {"완료", Sign::Good, 0xFF1E7B34, 0xFF7BD88F};
        case StageState::Failed:
            return {"실패", Sign::Bad, 0xFFC00000, 0xFFFF9090};
        case StageState::Open:
            break;
    }
    return {"대기", Sign::Open, 0xFF606060, 0xFFB0B0B0};
}

}  // namespace

StageRail::StageRail() {
    setObjectName(QStringLiteral("fraSTAGES"));
    setAccessibleName(QStringLiteral("확인 단계"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 2, 0, 2);
    for (int i = 0; i < CheckStageCount; ++i) {
        const auto place = static_cast<std::size_t>(i);
        Stages.at(place) = new SignLabel(QStringLiteral("lblSTAGE_%1").arg(i + 1),
                                         QString::fromUtf8(Names.at(place)), {});
        if (i > 0) row->addStretch(1);
        row->addWidget(Stages.at(place));
    }
    Show({});
}

void StageRail::Show(const CheckProgress& progress) {
    for (int i = 0; i < CheckStageCount; ++i) {
        const auto stage = static_cast<CheckStage>(i);
        ShowStage(stage, progress.Of(stage));
    }
}

void StageRail::ShowStage(CheckStage stage, StageState state) {
    SignLabel& label = *Stages.at(static_cast<std::size_t>(stage));
    const StateLook look = LookOf(state);
    const QColor colour(IsDark(palette().color(QPalette::Window)) ? look.OnDark : look.OnLight);
    QPalette colours;
    colours.setColor(QPalette::WindowText, colour);
    label.setPalette(colours);
    label.ShowSign(look.Mark);
    const QString spoken = label.text() + u' ' + QString::fromUtf8(look.Word);
    if (label.accessibleName() != spoken) label.setAccessibleName(spoken);
}

// The way from each stage to the next.
void StageRail::paintEvent(QPaintEvent* /*event*/) {
    constexpr int head = 4;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Faded(*this, Stale), 1.2));
    for (std::size_t i = 1; i < Stages.size(); ++i) {
        const QPointF from(Stages.at(i - 1)->geometry().right() + 2.5, height() / 2.0);
        const QPointF to(Stages.at(i)->geometry().left() - 1.5, height() / 2.0);
        painter.drawLine(from, to);
        painter.drawPolyline(QPolygonF{to + QPointF(-head, -head), to, to + QPointF(-head, head)});
    }
}

}  // namespace zps
