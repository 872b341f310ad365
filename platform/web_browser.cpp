#include "platform/web_browser.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

namespace zps::platform {

bool SystemWebBrowser::Open(const QString& address) {
    const QUrl url = QUrl::fromUserInput(address.trimmed());
    return url.isValid() && QDesktopServices::openUrl(url);
}

}  // namespace zps::platform
