#include "power/panel/picture_copy.h"

#include "controls/number_face.h"
#include "power/log/sharp_picture.h"

#include <QClipboard>
#include <QGuiApplication>

namespace zps {

namespace {

constexpr int Inset = 8;  // px, about the texts

struct Texts {
    QFont Bold;
    QFont Plain;
    int Width;

    QRect Place(const QFont& font, const QString& text) const {
        const QRect room(Inset, 0, Width - 2 * Inset, 10000);
        const int flags = static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextWordWrap;
        return QFontMetrics(font).boundingRect(room, flags, text);
    }
    int HeightOf(const QFont& font, const QString& text) const {
        return text.isEmpty() ? 0 : Place(font, text).height() + Inset / 2;
    }
};

void DrawText(QPainter& painter, const Texts& texts, const QFont& font, const QString& text,
              int top) {
    painter.setFont(font);
    const QRect room(Inset, top, texts.Width - 2 * Inset, 10000);
    painter.drawText(room, static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextWordWrap, text);
}

Texts TextsFor(const QWidget& shown) {
    Texts texts{shown.font(), shown.font(), shown.width()};
    texts.Bold.setPointSizeF(texts.Bold.pointSizeF() * 1.3);
    texts.Bold.setBold(true);
    SetNumberFace(texts.Plain);
    return texts;
}

}  // namespace

QImage MakePicture(QWidget& shown, const PictureTitle& title, const QString& note) {
    const Texts texts = TextsFor(shown);
    const QString about = title.Supply + QStringLiteral(" · ") +
                          title.At.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    const int head = Inset / 2 + texts.HeightOf(texts.Bold, title.Title);
    const int top = head + texts.HeightOf(texts.Plain, about);
    const int foot = texts.HeightOf(texts.Plain, note);
    const int height = top + shown.height() + foot + Inset / 2;
    const double ratio = 2 * shown.devicePixelRatioF();
    QImage picture((QSizeF(shown.width(), height) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(shown.palette().color(QPalette::Active, QPalette::Window));
    QPainter painter(&picture);
    painter.setPen(shown.palette().color(QPalette::Active, QPalette::WindowText));
    DrawText(painter, texts, texts.Bold, title.Title, Inset / 2);
    DrawText(painter, texts, texts.Plain, about, head);
    DrawText(painter, texts, texts.Plain, note, top + shown.height() + Inset / 4);
    DrawSharply(painter, {0, top}, shown);
    return picture;
}

void CopyPicture(const QImage& picture) {
    QGuiApplication::clipboard()->setImage(picture);
}

}  // namespace zps
