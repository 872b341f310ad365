#include "power/panel/step_legend.h"

#include "controls/colours.h"
#include "controls/spoken_labels.h"
#include "controls/widgets.h"
#include "power/panel/step_look.h"

#include <QHBoxLayout>
#include <QStackedLayout>

#include <array>

namespace zps {

namespace {

struct Item {
    RowState State;
    StepMark Mark;
    const char* Text;
};
constexpr std::array Items{
    Item{RowState::Selected, StepMark::None, "선택"},
    Item{RowState::Held, StepMark::Held, "송신됨"},
    Item{RowState::Plain, StepMark::Changed, "미송신"},
    Item{RowState::Plain, StepMark::Refused, "거부됨"},
    Item{RowState::Held, StepMark::Running, "실행 중"},
};

// A row in small.
class Swatch : public QWidget {
  public:
    Swatch(const Item& item, QWidget* parent) : QWidget(parent), Shown(item) {
        setFixedSize(16, 14);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const QColor back = LookOf(Shown.State).Fields;
        const bool refused = Shown.Mark == StepMark::Refused;
        QPainter painter(this);
        painter.fillRect(rect(), back);
        painter.setPen(isEnabled() ? ReadableOn(back) : FaintOn(back));
        const double size = height() * 0.7;
        DrawMark(painter, QRectF((width() - size) / 2, (height() - size) / 2, size, size),
                 Shown.Mark);
        const QColor edge = refused ? ToQColor(Colour::DarkRed) : palette().color(QPalette::Mid);
        const int thickness = refused ? 2 : 1;
        painter.setPen(QPen(edge, thickness));
        painter.drawRect(rect().adjusted(thickness / 2, thickness / 2, -1, -1));
    }

  private:
    const Item& Shown;
};

QWidget* MakeMeanings(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const Item& item : Items) {
        row->addWidget(new Swatch(item, page));
        row->addWidget(MakeLabel({}, QString::fromUtf8(item.Text)));
        row->addStretch(1);
    }
    row->addSpacing(6);
    row->addWidget(MakeLabel({}, QStringLiteral("번호를 누르면 송신")));
    row->addStretch(6);
    return page;
}

// However long its text is, it moves nothing beside it.
QLabel* MakeNews() {
    auto* label = MakeLabel(QStringLiteral("lblTABLE"), {}, QStringLiteral("단계표 알림"));
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

QWidget* MakeEditing() {
    auto* label = MakeLabel(QStringLiteral("lblEDITING"),
                            QStringLiteral("입력 중: Enter 확정 · Esc 취소 · F9 출력 끄기"));
    label->setIndent(6);
    PaintBackground(*label, QColor(shade::Amber));
    return label;
}

}  // namespace

StepLegend::StepLegend(QWidget* parent)
    : QWidget(parent), Pages(new QStackedLayout(this)), lblTABLE(MakeNews()) {
    constexpr int readingTime = 6000;  // ms
    setObjectName(QStringLiteral("fraSTEPLEGEND"));
    Pages->addWidget(MakeMeanings(this));
    Pages->addWidget(MakeEditing());
    Pages->addWidget(lblTABLE);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    tmrTABLE.setSingleShot(true);
    tmrTABLE.setInterval(readingTime);
    QObject::connect(&tmrTABLE, &QTimer::timeout, this, [this] {
        lblTABLE->clear();
        ShowPage();
    });
}

void StepLegend::ShowEditing(bool on) {
    Editing = on;
    ShowPage();
}

void StepLegend::Tell(const QString& text) {
    lblTABLE->setText(text);
    Say(*lblTABLE);
    tmrTABLE.start();
    ShowPage();
}

void StepLegend::ShowPage() {
    Pages->setCurrentIndex(Editing ? 1 : lblTABLE->text().isEmpty() ? 0 : 2);
}

}  // namespace zps
