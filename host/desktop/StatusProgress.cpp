#include "desktop/StatusProgress.h"

#include "desktop/UserActions.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

namespace vantix::host::desktop
{

QString TimeLeftText(qint64 elapsedMs, int percent)
{
    if (percent <= 0 || percent >= 100 || elapsedMs <= 0)
        return {};
    const qint64 seconds = (elapsedMs * (100 - percent) / percent + 999) / 1000;
    if (seconds < 60)
        return QString("%1 s left").arg(seconds);
    return QString("%1 min %2 s left").arg(seconds / 60).arg(seconds % 60);
}

StatusProgress::StatusProgress(QStatusBar* bar)
    : m_text(new QLabel(bar)), m_bar(new QProgressBar(bar)), m_timeLeft(new QLabel(bar)),
      m_cancel(new QPushButton("Cancel", bar))
{
    bar->addWidget(m_text, 1);
    bar->addPermanentWidget(m_bar);
    bar->addPermanentWidget(m_timeLeft);
    bar->addPermanentWidget(m_cancel);
    m_bar->setRange(0, 100);
    m_bar->setMaximumWidth(240);
    m_cancel->setToolTip("Stop the work now running");
    for (QWidget* widget :
         {static_cast<QWidget*>(m_bar), static_cast<QWidget*>(m_timeLeft), static_cast<QWidget*>(m_cancel)})
        widget->hide();
    QObject::connect(m_cancel, &QPushButton::clicked,
                     [this]
                     {
                         requestCancel();
                         m_cancel->setEnabled(false);
                         m_timeLeft->setText("stopping...");
                     });
    SetCancelButton(m_cancel);
    setStatusObserver([this](const StatusEvent& event) { show(event); });
}

StatusProgress::~StatusProgress()
{
    setStatusObserver(nullptr);
}

void StatusProgress::show(const StatusEvent& event)
{
    switch (event.kind)
    {
    case StatusEvent::Kind::Start:
        m_text->setText(QString::fromStdString(event.text));
        m_bar->setVisible(event.showBar);
        m_bar->setValue(0);
        m_timeLeft->setVisible(event.showBar);
        m_timeLeft->clear();
        m_cancel->setVisible(event.showStop);
        m_cancel->setEnabled(true);
        m_started.start();
        break;
    case StatusEvent::Kind::SetText:
        m_text->setText(QString::fromStdString(event.text));
        break;
    case StatusEvent::Kind::Check:
        if (m_cancel->isEnabled())
            showProgress(event.percent);
        KeepWindowsAnswering();
        break;
    case StatusEvent::Kind::Finish:
        m_text->clear();
        m_bar->hide();
        m_timeLeft->hide();
        m_cancel->hide();
        break;
    }
}

void StatusProgress::showProgress(int percent)
{
    m_bar->setValue(percent);
    m_timeLeft->setText(TimeLeftText(m_started.elapsed(), percent));
}

} // namespace vantix::host::desktop
