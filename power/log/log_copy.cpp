#include "power/log/log_copy.h"

#include "controls/copy_text.h"

#include <QProgressBar>

#include <algorithm>

namespace zps {

namespace {

constexpr int RowsAtATime = 2000;
constexpr int RowsWithoutProgress = 50000;

}  // namespace

LogCopy::LogCopy(const LogModel& model, QWidget& owner) : Model(model), Owner(owner) {
    connect(&Pause, &QTimer::timeout, this, &LogCopy::CopySome);
    connect(&Model, &QAbstractItemModel::rowsRemoved, this, &LogCopy::Cancel);
}

void LogCopy::Start(int first, int last) {
    Cancel();
    First = Next = first;
    Last = last;
    Text = Model.CopyHead(first, last).toUtf8();
    if (last - first >= RowsWithoutProgress) ShowProgress();
    Pause.start(0);
    CopySome();
}

void LogCopy::Cancel() {
    Pause.stop();
    Text = {};
    if (Progress) {
        Progress->disconnect(this);
        Progress->close();
        Progress->deleteLater();
        Progress = nullptr;
    }
}

void LogCopy::CopySome() {
    const int end = std::min(Next + RowsAtATime - 1, Last);
    for (; Next <= end; ++Next) Text += Model.CopyLine(Next).toUtf8();
    if (Progress) Progress->setValue(Next - First);
    if (Next > Last) Finish();
}

// The box leaves the window usable: the output must be within reach at any time.
void LogCopy::ShowProgress() {
    Progress = new QProgressDialog(QStringLiteral("측정 데이터를 복사하고 있습니다."),
                                   QStringLiteral("취소"), 0, Last - First + 1, &Owner);
    Progress->setWindowTitle(QStringLiteral("측정 데이터 복사"));
    Progress->findChild<QProgressBar*>()->setAccessibleName(QStringLiteral("복사한 행"));
    Progress->setAutoReset(false);
    Progress->setMinimumDuration(0);
    connect(Progress, &QProgressDialog::canceled, this, &LogCopy::Cancel);
    Progress->show();
}

void LogCopy::Finish() {
    CopyText(Text);
    Cancel();
    Q_EMIT Copied(Last - First + 1);
}

}  // namespace zps
