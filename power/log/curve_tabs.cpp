#include "power/log/curve_tabs.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zps {

namespace {

// As low as a line of text allows.
class LowTabs : public QTabBar {
  public:
    QSize tabSizeHint(int index) const override {
        const QFontMetrics metrics = fontMetrics();
        return {metrics.horizontalAdvance(tabText(index)) + 30, metrics.height() + 6};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace

CurveTabs::CurveTabs(QWidget* parent) : QWidget(parent), tabCURVE(new LowTabs) {
    tabCURVE->setObjectName(QStringLiteral("tabCURVE"));
    tabCURVE->setAccessibleName(QStringLiteral("그래프 보기"));
    tabCURVE->setDrawBase(false);
    tabCURVE->setExpanding(false);
    tabCURVE->setUsesScrollButtons(false);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(2);
    auto* head = new QHBoxLayout;
    head->addWidget(tabCURVE);
    all->addLayout(head);
    connect(tabCURVE, &QTabBar::currentChanged, this, &CurveTabs::tabCURVE_Change);
}

void CurveTabs::Add(const QString& caption, ChartFrame& view) {
    auto* all = static_cast<QVBoxLayout*>(layout());
    static_cast<QHBoxLayout*>(all->itemAt(0)->layout())->addWidget(&view.Head(), 1);
    all->addWidget(&view, 1);
    Views.push_back(&view);
    tabCURVE->addTab(caption);
    tabCURVE_Change(tabCURVE->currentIndex());
}

void CurveTabs::tabCURVE_Change(int index) {
    for (std::size_t k = 0; k < Views.size(); ++k) {
        const bool shown = static_cast<int>(k) == index;
        Views[k]->setVisible(shown);
        Views[k]->Head().setVisible(shown);
    }
}

}  // namespace zps
