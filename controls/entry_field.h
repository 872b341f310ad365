// A one-line entry field: what the toolkit tells of it, sorted into what the panel's rules speak
// of.
#pragma once

#include <QLineEdit>

#include <cstdint>
#include <functional>
#include <utility>

namespace zps {

// It keeps no rule of its own: whoever handles its events decides when it is entered and left.
class EntryField : public QLineEdit {
  public:
    EntryField(const QString& name, const QString& accessibleName, QWidget* parent);

    // How the focus goes: between controls of the window; or with the whole window, or
    // behind a menu or pop-up, so that the field stays as it is.
    enum class Way : std::uint8_t { ByControl, WithWindow };

    struct Listener {
        std::function<void()> FocusIn;
        std::function<void(Way)> FocusOut;
        // The text has changed, by a person or from outside; not by Write.
        std::function<void(const QString& before)> Change;
        std::function<void()> Committed;  // Enter
        std::function<void()> Cancelled;  // Escape
        // A key that makes a character, before it takes effect.
        std::function<void(QChar)> KeyPress;
    };
    void SetListener(Listener listener) { On = std::move(listener); }

    // Sets the text by program: no Change is told.
    void Write(const QString& text);

    // Shows that the supply has not taken the value, and tells it to screen readers.
    void MarkRefused(bool refused);
    bool Refused() const { return Marked; }
    // What can be entered here, as tool tip and for screen readers.
    void SetHint(const QString& hint);
    // What the number counts, behind it in the field.
    void SetUnit(const QString& unit);

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void MakeRoomForUnit();
    void PasteCell();
    void ShowWords();
    void DrawFrame(QPainter& painter);

    Listener On;
    QString Known;         // the text before the next change
    bool Writing = false;  // the program sets the text
    bool Marked = false;
    QString Hint;
    QString Unit;
    // The mouse has brought the focus: it selects the whole text, as Tab does, until it is pressed
    // again.
    bool FocusByMouse = false;
    bool WholeByMouse = false;
    bool WholeBefore = false;  // the same of the press before
};

}  // namespace zps
