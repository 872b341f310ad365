#include "power/log/curve_view.h"

#include "controls/widgets.h"
#include "power/log/curve_texts.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace zps {

namespace {

constexpr double ZoomStep = 1.5;  // of a key

// While the picture follows, it is drawn anew so often; less often where a column of pixels takes
// longer to pass.
constexpr double MostOften = 500;     // ms
constexpr double LeastOften = 10000;  // ms

const QString Separator = QStringLiteral(", ");

}  // namespace

CurveView::CurveView(const LogModel& log, QWidget* parent)
    : CurveView(log, new RunCurveCanvas(log.Curve()), parent) {}

CurveView::CurveView(const LogModel& log, RunCurveCanvas* canvas, QWidget* parent)
    : ChartFrame(QStringLiteral("lblCURVE"), *canvas, parent),
      Log(log),
      Curve(log.Curve()),
      Canvas(*canvas),
      Foot(new QWidget(this)),
      lblCURVESTAT(new PartsLine(QStringLiteral("lblCURVESTAT"))),
      chkFOLLOW(new QCheckBox(QStringLiteral("끝 따라가기"))) {
    chkFOLLOW->setObjectName(QStringLiteral("chkFOLLOW"));
    chkFOLLOW->setFocusPolicy(Qt::TabFocus);
    chkFOLLOW->setChecked(true);
    chkFOLLOW->setToolTip(QStringLiteral("새 측정이 오면 그래프가 따라갑니다. (F)"));
    connect(chkFOLLOW, &QCheckBox::clicked, this, &CurveView::ToggleFollow);
    tmrCURVE.setSingleShot(true);
    connect(&tmrCURVE, &QTimer::timeout, this, &CurveView::tmrCURVE_Timer);
    auto* foot = new QHBoxLayout(Foot);
    foot->setContentsMargins(4, 0, 0, 0);
    foot->addWidget(lblCURVESTAT, 1);
    foot->addSpacing(12);
    foot->addWidget(chkFOLLOW);
    Foot->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    layout()->setSpacing(3);
    layout()->addWidget(Foot);
    AddActions();
}

void CurveView::AddActions() {
    setContextMenuPolicy(Qt::ActionsContextMenu);
    AddAction("mnuCURVE_IN", QStringLiteral("확대(&I)\t+"), &CurveView::ZoomIn);
    AddAction("mnuCURVE_OUT", QStringLiteral("축소(&O)\t-"), &CurveView::ZoomOut);
    AddAction("mnuCURVE_ALL", QStringLiteral("전체 보기(&A)\t0"), &CurveView::ShowAll);
    AddAction("mnuCURVE_FOLLOW", QStringLiteral("끝 따라가기(&F)\tF"), &CurveView::ToggleFollow);
    AddAction("mnuCURVE_MARK", QStringLiteral("표시 붙이기(&M)\tSpace"), &CurveView::Mark);
    AddAction("mnuCURVE_UNMARK", QStringLiteral("표시 지우기(&U)\tDel"), &CurveView::Unmark);
}

// Their keys come with the others.
void CurveView::AddAction(const char* name, const QString& text, void (CurveView::*run)()) {
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, run);
    addAction(action);
}

void CurveView::Grown() {
    if (!isVisible() || tmrCURVE.isActive()) return;
    const double column = Window.Width() / Canvas.Columns() * 1000;  // ms
    tmrCURVE.start(static_cast<int>(std::clamp(column, MostOften, LeastOften)));
}

void CurveView::Cleared() {
    Cursor.reset();
    Window.GrowTo(0);
    Window.ShowAll();
    Unmark();
}

// Samples beyond what is seen change nothing.
void CurveView::tmrCURVE_Timer() {
    if (Window.GrowTo(Curve.End()) || Drawn < Window.High()) Replot();
}

void CurveView::showEvent(QShowEvent* event) {
    ChartFrame::showEvent(event);
    Stale = false;  // nothing has been drawn while it was hidden
    Replot();
}

void CurveView::Replot() {
    if (Stale || !isVisible()) return;
    Stale = true;
    QMetaObject::invokeMethod(this, &CurveView::Plot, Qt::QueuedConnection);
}

void CurveView::Plot() {
    Stale = false;
    if (!isVisible()) return;
    Drawn = Curve.End();
    Window.GrowTo(Drawn);
    chkFOLLOW->setChecked(Window.Follows());
    Canvas.Plot(Window);
    ShowNotes();
}

// A low picture has no room for what is read off it; the line above it has some, where the values
// come first.
void CurveView::ShowNotes() {
    RunCurveCanvas::Notes notes{Picked(), {}, {Marked(0), Marked(1)}};
    const QString reading = notes.Cursor ? ReadingAt(*notes.Cursor) : QString();
    const bool aloft = notes.Cursor && Canvas.IsLow();
    if (!aloft) notes.Reading = reading;
    Canvas.Point(notes);
    ShowDifference(aloft ? reading.section(u'\n', 1) + QStringLiteral(" · ") +
                               reading.section(u'\n', 0, 0)
                         : Marks.Difference());
    const auto [title, figures] = Figures();
    lblCURVESTAT->Show(title, figures);
}

// In a low view the curve needs the room more than the line below it does.
void CurveView::resizeEvent(QResizeEvent* event) {
    ChartFrame::resizeEvent(event);
    Foot->setVisible(height() - Foot->sizeHint().height() >= LowPlot);
}

QString CurveView::ReadingAt(std::size_t index) const {
    return SampleText(Curve.PointAt(index), Curve.StepOf(index));
}

// Of the samples from one mark to the other, or of those that are seen.
std::pair<QString, QStringList> CurveView::Figures() const {
    const auto figures = [this](std::size_t first, std::size_t end) {
        return FigureTexts(Log.SumsOf(static_cast<int>(first) + 1, static_cast<int>(end)));
    };
    if (const auto a = Marked(0), b = Marked(1); a && b)
        return {QStringLiteral("A~B"), figures(std::min(*a, *b), std::max(*a, *b) + 1)};
    const std::size_t first = Curve.IndexAt(Window.Low());
    return {QStringLiteral("보이는 부분"), figures(first, Curve.IndexAt(Window.High(), first))};
}

void CurveView::ShowAll() {
    Window.ShowAll();
    Replot();
    Speak();
}

void CurveView::ToggleFollow() {
    Window.Follows() ? Window.Stay() : Window.Follow();
    Replot();
    Speak();
}

void CurveView::ZoomIn() {
    Zoom(1 / ZoomStep);
}

void CurveView::ZoomOut() {
    Zoom(ZoomStep);
}

// About the cursor, where it is seen, else about the end that is followed or the middle.
void CurveView::Zoom(double factor) {
    double about = (Window.Low() + Window.High()) / 2;
    if (Window.Follows() && !Window.ShowsAll()) about = Window.High();
    if (const auto picked = Picked()) about = Curve.PlaceOf(*picked);
    Window.Zoom(factor, about);
    Replot();
    Speak();
}

void CurveView::Move(double shares) {
    Window.Move(shares * Window.Width());
    Replot();
}

std::optional<std::size_t> CurveView::Picked() const {
    if (Dragged && Dragged->Moves) return std::nullopt;
    if (PointerX) return Curve.Nearest(PlaceAt(*PointerX));
    return Cursor;
}

std::optional<std::size_t> CurveView::Marked(std::size_t mark) const {
    const auto& point = Marks.Marked().at(mark);
    return point ? Curve.IndexOf(*point) : std::nullopt;
}

void CurveView::Pick(std::optional<std::size_t> index) {
    PointerX.reset();
    Cursor = index;
    if (index) {
        Window.Reveal(Curve.PlaceOf(*index));
        Replot();
    }
    Speak();
}

// To the next sample, or as many columns of pixels as `columns` says where those have more of them.
void CurveView::Step(int columns) {
    if (Curve.Count() == 0) return;
    const std::size_t last = Curve.Count() - 1;
    const auto from = Picked();
    if (!from) return Pick(Curve.Nearest(columns > 0 ? Window.Low() : Window.High()));
    const double place = Curve.PlaceOf(*from) + columns * Window.Width() / Canvas.Columns();
    const std::size_t reached = Curve.Nearest(place).value_or(last);
    if (columns > 0) return Pick(std::min(std::max(reached, *from + 1), last));
    Pick(std::min(reached, *from == 0 ? 0 : *from - 1));
}

void CurveView::Mark() {
    const auto picked = Picked();
    if (!picked) return;
    Marks.Put(Curve.PointAt(*picked));
    ShowDifference(Marks.Difference());
    Replot();
    Speak();
}

void CurveView::Unmark() {
    Marks.Clear();
    ShowDifference({});
    Replot();
    Speak();
}

QString CurveView::PictureNote() const {
    const auto [title, figures] = Figures();
    if (figures.isEmpty() || (Foot->isVisible() && lblCURVESTAT->ShowsAll())) return {};
    return title + QStringLiteral(": ") + figures.join(Separator);
}

// The sample at the cursor, else what is seen.
QString CurveView::SpokenText() const {
    QStringList parts;
    if (const auto picked = Picked()) {
        parts << ReadingAt(*picked).replace(u'\n', QStringLiteral(" · "));
        if (Marked(0) == picked) parts << QStringLiteral("표시 A");
        if (Marked(1) == picked) parts << QStringLiteral("표시 B");
        if (Marked(1) != picked) return parts.join(Separator);
        parts << Marks.Difference();
    }
    if (Curve.Count() == 0) return QStringLiteral("측정값 없음");
    const auto [title, figures] = Figures();
    parts << title << figures;
    if (Window.Follows()) parts << chkFOLLOW->text();
    return parts.join(Separator);
}

}  // namespace zps
