// A row of numbered panels that shows the bytes of a reply.
#pragma once

#include "controls/paced.h"

#include <QFrame>
#include <QLabel>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zps {

// Text tells at once what is to be shown; the labels, and with them screen readers, follow at the
// pace of Paced.
class NumberPanels : public QFrame {
  public:
    // `name` is the given name of the row; panel i, counted from 1, is a label `name`_i. The first
    // `lasting` panels may outlast a reply; the others are blank where a reply has no byte for
    // them.
    NumberPanels(const QString& name, int count, int perLine, int lasting = 0);

    // Writes small captions above the panels from panel 1 on, in groups with a gap between them.
    // Call it before the panels are laid out.
    void SetCaptions(const std::vector<QStringList>& groups);
    // Sets the first `count` panels apart from the others.
    void Tint(int count);

    int Count() const { return static_cast<int>(Panels.size()); }
    // The least room that so many lines of panels take.
    QSize SizeOf(int lines) const;
    // What panel `panel` shows; std::out_of_range where there is none of that number.
    QString Text(int panel) const;

    // Shows `bytes` as decimal numbers from panel 1 on; bytes beyond the last panel are not shown.
    // Of the panels behind them those up to `blankTo` are blanked; later lasting ones keep what
    // they show, faintly, as it is from a reply before.
    void ShowBytes(std::span<const std::uint8_t> bytes, int blankTo = 0);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    // The panels are placed here, not by a layout: that would lay out the window for each new text.
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Panel {
        QLabel* Label;
        QString Caption;
        int Before;  // px, between the one before and this one
    };

    void AddLabel(int number);
    int LineCount() const { return (Count() + PerLine - 1) / PerLine; }
    QFont CaptionFont() const;
    int CaptionHeight() const;
    int LineWidth() const;
    void SetTexts();
    void Dress();

    const int PerLine;
    const std::size_t Lasting;
    std::vector<std::optional<std::uint8_t>> Shown;
    std::vector<Panel> Panels;
    bool Captioned = false;
    std::size_t Tinted = 0;
    std::size_t Received = 0;  // bytes of the last reply
    std::size_t Fresh = 0;     // the same, as far as it is shown
    Paced Texts{[this] { SetTexts(); }};
};

}  // namespace zps
