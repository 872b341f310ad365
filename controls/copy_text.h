// Text for the clipboard.
#pragma once

#include <QByteArray>

namespace zps {

// Puts a text (UTF-8) on the clipboard as it is: line ends and all are the same on every system.
void CopyText(const QByteArray& text);

}  // namespace zps
