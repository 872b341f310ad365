#include "controls/entry_field.h"

#include "controls/colours.h"

#include <QClipboard>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>

#include <utility>

namespace zps {

namespace {

EntryField::Way WayOf(Qt::FocusReason reason) {
    const bool withWindow = reason == Qt::ActiveWindowFocusReason ||
                            reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
    return withWindow ? EntryField::Way::WithWindow : EntryField::Way::ByControl;
}

void Call(const std::function<void()>& event) {
    if (event) event();
}

}  // namespace

EntryField::EntryField(const QString& name, const QString& accessibleName, QWidget* parent)
    : QLineEdit(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAcceptDrops(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& now) {
        const QString before = std::exchange(Known, now);
        if (!Writing && On.Change) On.Change(before);
    });
}

void EntryField::Write(const QString& text) {
    const bool nested = std::exchange(Writing, true);
    setText(text);
    Writing = nested;
}

void EntryField::MarkRefused(bool refused) {
    if (refused == Marked) return;
    Marked = refused;
    ShowWords();
    update();
}

void EntryField::SetHint(const QString& hint) {
    if (hint == Hint) return;
    Hint = hint;
    ShowWords();
}

void EntryField::ShowWords() {
    const QString words =
        Marked
            ? QStringLiteral("전원 장치가 이 값을 받지 않았습니다. Enter를 누르면 다시 보냅니다.")
            : Hint;
    setToolTip(words);
    setAccessibleDescription(words);
}

void EntryField::SetUnit(const QString& unit) {
    Unit = unit;
    MakeRoomForUnit();
}

void EntryField::MakeRoomForUnit() {
    if (!Unit.isEmpty()) setTextMargins(0, 0, fontMetrics().horizontalAdvance(Unit) + 4, 0);
}

void EntryField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) MakeRoomForUnit();
}

void EntryField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    FocusByMouse = event->reason() == Qt::MouseFocusReason;
    Call(On.FocusIn);
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    FocusByMouse = WholeByMouse = WholeBefore = false;
    if (On.FocusOut) On.FocusOut(WayOf(event->reason()));
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Call(On.Committed);
            return;
        case Qt::Key_Escape:
            Call(On.Cancelled);
            return;
        default:
            break;
    }
    if (event->matches(QKeySequence::Paste)) {
        PasteCell();
        return;
    }
    const bool command = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    if (On.KeyPress && !command && !event->text().isEmpty()) On.KeyPress(event->text().front());
    QLineEdit::keyPressEvent(event);
}

// Of a row of a spreadsheet the first cell: one after another, two of them would read as one
// number.
void EntryField::PasteCell() {
    static const QRegularExpression behind(QStringLiteral("[\t\r\n].*"),
                                           QRegularExpression::DotMatchesEverythingOption);
    insert(QGuiApplication::clipboard()->text().remove(behind));
}

void EntryField::mousePressEvent(QMouseEvent* event) {
    WholeBefore = std::exchange(WholeByMouse, std::exchange(FocusByMouse, false));
    QLineEdit::mousePressEvent(event);
    if (WholeByMouse) selectAll();
}

// The wheel is turned over the fields: pressing it by mistake must not paste into one.
void EntryField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) QLineEdit::mouseReleaseEvent(event);
}

void EntryField::mouseMoveEvent(QMouseEvent* event) {
    if (!WholeByMouse) QLineEdit::mouseMoveEvent(event);
}

void EntryField::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    // It comes alone, behind one press or behind two, as the system has it.
    WholeByMouse = WholeByMouse || WholeBefore || std::exchange(FocusByMouse, false);
    if (WholeByMouse) selectAll();
}

void EntryField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    if (!Unit.isEmpty()) {
        constexpr int frame = 4;  // px
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(rect().adjusted(0, 0, -frame, 0), Qt::AlignRight | Qt::AlignVCenter, Unit);
    }
    DrawFrame(painter);
}

// One without a frame of its own stands in a grid, and shows the focus all the same.
void EntryField::DrawFrame(QPainter& painter) {
    const bool focus = !hasFrame() && hasFocus();
    if (!Marked && !focus) return;
    const int thickness = Marked ? 3 : 2;
    const QColor colour = Marked ? ToQColor(Colour::DarkRed) : palette().color(QPalette::Highlight);
    painter.setPen(QPen(colour, thickness));
    painter.drawRect(rect().adjusted(1, 1, -thickness / 2 - 1, -thickness / 2 - 1));
}

}  // namespace zps
