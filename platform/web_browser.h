// The way out to the web.
#pragma once

class QString;

namespace zps::platform {

class WebBrowser {
  public:
    virtual ~WebBrowser() = default;

    // Shows `address` in a web browser; a bare "www.example.com" counts as a web address. False if
    // the address is none or nothing took it. Window thread only.
    virtual bool Open(const QString& address) = 0;
};

// The browser that the person at the machine has chosen.
class SystemWebBrowser : public WebBrowser {
  public:
    bool Open(const QString& address) override;
};

}  // namespace zps::platform
