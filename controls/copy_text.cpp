#include "controls/copy_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace zps {

// As bytes: some systems would put line ends of their own into a text.
void CopyText(const QByteArray& text) {
    auto* content = new QMimeData;
    content->setData(QStringLiteral("text/plain"), text);
    QGuiApplication::clipboard()->setMimeData(content);
}

}  // namespace zps
