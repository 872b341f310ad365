#include "platform/web_browser.h"

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

#include <gtest/gtest.h>

namespace zps::platform {
namespace {

// Stands in for the browser: QDesktopServices hands it the addresses.
class Opened : public QObject {
    Q_OBJECT
  public:
    Opened() { QDesktopServices::setUrlHandler("http", this, "Take"); }
    ~Opened() override { QDesktopServices::unsetUrlHandler("http"); }
    Q_INVOKABLE void Take(const QUrl& address) { Last = address; }
    QUrl Last;
};

TEST(WebBrowserTest, TheAddressIsOpenedAlsoWithoutAScheme) {
    Opened opened;
    EXPECT_TRUE(SystemWebBrowser().Open("http://www.example.com/a?b=c"));
    EXPECT_EQ(opened.Last, QUrl("http://www.example.com/a?b=c"));
    EXPECT_TRUE(SystemWebBrowser().Open(" www.example.com\n"));
    EXPECT_EQ(opened.Last, QUrl("http://www.example.com"));
    EXPECT_FALSE(SystemWebBrowser().Open(""));
}

}  // namespace
}  // namespace zps::platform

#include "web_browser_test.moc"
