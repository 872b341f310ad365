#include "power/panel/no_link_card.h"

#include "controls/message_icons.h"
#include "controls/widgets.h"

#include <QFrame>
#include <QGridLayout>
#include <QPainter>

namespace zps {

namespace {

QString CauseOf(Reply result) {
    switch (result) {
        case Reply::Nak:
            return QStringLiteral(
                "전원 장치가 확인을 거부했습니다(NAK). 본체의 상태를 확인하십시오.");
        case Reply::BadAck:
        case Reply::BadData:
            return QStringLiteral(
                "알아볼 수 없는 응답이 왔습니다. 케이블을 확인하고, 같은 주소의 전원 장치가 두 대 "
                "있지 않은지 확인하십시오.");
        case Reply::None:
        case Reply::Ack:
        case Reply::Data:
            break;
    }
    return QStringLiteral(
        "응답이 없습니다. 전원 장치의 전원과 케이블, 포트와 주소를 확인하십시오.");
}

QLabel* MakeLine(const QString& name, const QString& text) {
    QLabel* line = MakeLabel(name, text);
    line->setWordWrap(true);
    return line;
}

// As large as its bounds say, whatever they grow to.
class WarningIcon : public QWidget {
  public:
    explicit WarningIcon(int size) { setFixedSize(size, size); }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        DrawMessageIcon(MessageIcon::Warning).paint(&painter, rect());
    }
};

}  // namespace

NoLinkCard::NoLinkCard(const QString& name)
    : cmdSET_MANU(MakeButton(QStringLiteral("cmdSET_MANU"), QStringLiteral("ZPS설정 열기"))),
      lblCAUSE(MakeLine(QStringLiteral("lblCAUSE"), {})) {
    constexpr int iconSize = 56;
    constexpr int cardWidth = 440;
    setObjectName(name);
    setAccessibleName(QStringLiteral("통신 실패"));
    auto* card = new QFrame;
    card->setFrameShape(QFrame::StyledPanel);
    card->setAutoFillBackground(true);
    card->setBackgroundRole(QPalette::Base);
    card->setMaximumWidth(cardWidth + iconSize);
    auto* heading = MakeLine({}, QStringLiteral("전원 장치와 통신하지 못했습니다."));
    Enlarge(*heading, 1.3);
    lblCAUSE->setAccessibleName(QStringLiteral("원인"));
    auto* grid = new QGridLayout(card);
    grid->setContentsMargins(28, 24, 28, 24);
    grid->setHorizontalSpacing(20);
    grid->setVerticalSpacing(12);
    grid->setColumnStretch(1, 1);
    grid->addWidget(new WarningIcon(iconSize), 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(heading, 0, 1);
    grid->addWidget(lblCAUSE, 1, 1);
    grid->addWidget(
        MakeLine({}, QStringLiteral("메뉴 설정 > ZPS설정(Alt+S, R)에서 다시 확인하십시오.")), 2, 1);
    grid->addWidget(cmdSET_MANU, 3, 1, Qt::AlignLeft);
    auto* around = new QGridLayout(this);
    around->addWidget(card, 1, 1);
    around->setColumnStretch(1, 1000);  // up to its greatest width
    for (const int side : {0, 2}) {
        around->setRowStretch(side, 1);
        around->setColumnStretch(side, 1);
    }
    hide();
}

void NoLinkCard::Explain(Reply result, const QString& portTrouble) {
    lblCAUSE->setText(portTrouble.isEmpty() ? CauseOf(result) : portTrouble);
}

void NoLinkCard::ExplainUnchecked() {
    lblCAUSE->setText(QStringLiteral("통신 확인을 마치지 않았습니다."));
}

}  // namespace zps
