// Pictures for the clipboard, to be sent to somebody who was not there.
#pragma once

#include <QDateTime>
#include <QImage>
#include <QString>
#include <QWidget>

namespace zps {

// What stands above a picture.
struct PictureTitle {
    QString Title;
    QString Supply;  // model, ratings, port and address
    QDateTime At;
};

// `shown`, which is visible, at twice the resolution of its screen below its title, and `note` in
// as many lines as it needs below it.
QImage MakePicture(QWidget& shown, const PictureTitle& title, const QString& note = {});

// The clipboard has the picture from now on.
void CopyPicture(const QImage& picture);

}  // namespace zps
