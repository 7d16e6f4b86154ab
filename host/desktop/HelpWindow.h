// The add-on's help pages in a window of the desktop: links between the pages work, Back and Forward
// go through the pages seen, and web addresses go to the person's browser.
#pragma once

#include <vantix/host/Gui.h>

#include <QWidget>

class QTextBrowser;

namespace vantix::host::desktop
{

class HelpWindow : public QWidget
{
public:
    // Shows the host's help requests while it lives.
    explicit HelpWindow(QWidget* parent);
    ~HelpWindow() override;

    // Shows a page of the help folder (or hands an address to the browser); answers whether it could.
    bool showPage(const HelpRequest& request);
    QTextBrowser* browser() const { return m_browser; }

private:
    QTextBrowser* m_browser;
};

} // namespace vantix::host::desktop
