#include "desktop/HelpWindow.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace vantix::host::desktop
{

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window), m_browser(new QTextBrowser(this))
{
    setWindowTitle("Vantix Help");
    resize(760, 640);
    auto* back = new QPushButton("&Back", this);
    auto* forward = new QPushButton("&Forward", this);
    auto* close = new QPushButton("&Close", this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(back);
    buttons->addWidget(forward);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(m_browser);
    m_browser->setOpenExternalLinks(true);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
    connect(close, &QPushButton::clicked, this, &QWidget::hide);
    setHelpViewer([this](const HelpRequest& request) { return showPage(request); });
}

HelpWindow::~HelpWindow()
{
    setHelpViewer(nullptr);
}

bool HelpWindow::showPage(const HelpRequest& request)
{
    if (request.isURL)
        return QDesktopServices::openUrl(QUrl(QString::fromStdString(request.location)));
    m_browser->setSource(QUrl::fromLocalFile(QString::fromStdString(request.location)));
    QWidget::show();
    raise();
    activateWindow();
    return true;
}

} // namespace vantix::host::desktop
