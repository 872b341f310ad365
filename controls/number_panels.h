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

    // Writes captions under the panels of a row of one line, in groups with a gap between them. One
    // for each panel.
    void SetCaptions(const std::vector<QStringList>& groups);

    int Count() const { return static_cast<int>(Panels.size()); }
    // The least room that so many lines of panels take.
    QSize SizeOf(int lines) const;
    // What panel `panel` shows; std::out_of_range where there is none of that number.
    QString Text(int panel) const;

    // Shows `bytes` as decimal numbers from panel 1 on; bytes beyond the last panel are not shown.
    // Of the panels behind them those up to `blankTo` are blanked, later lasting ones left alone.
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

    const int PerLine;
    const std::size_t Lasting;
    std::vector<std::optional<std::uint8_t>> Shown;
    std::vector<Panel> Panels;
    bool Captioned = false;
    Paced Texts{[this] { SetTexts(); }};
};

}  // namespace zps
