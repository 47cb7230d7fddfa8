// SPDX-License-Identifier: MIT
#include "host/ui/WizardProgress.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>

#include <algorithm>

namespace kpBase
{

namespace
{

constexpr qint64 breathInterval = 50;       // milliseconds between two turns of the event loop
constexpr qint64 firstEstimateAfter = 1000; // an estimate made earlier jumps about

QString remainingText(qint64 elapsed, int percent)
{
    if (percent <= 0 || percent >= 100 || elapsed < firstEstimateAfter)
        return {};
    const qint64 seconds = (elapsed * (100 - percent) / percent + 999) / 1000;
    if (seconds < 60)
        return WizardProgress::tr("about %1 s left").arg(seconds);
    return WizardProgress::tr("about %1 min %2 s left").arg(seconds / 60).arg(seconds % 60);
}

} // namespace

WizardProgress::WizardProgress(QProgressBar* bar, QLabel* remaining, QObject* parent)
    : QObject(parent)
    , m_bar(bar)
    , m_remaining(remaining)
{
    m_sinceEvents.start();
}

void WizardProgress::begin()
{
    m_cancelled = false;
    m_running = true;
    m_runTime.start();
    if (m_bar) {
        m_bar->setRange(0, 0);
        m_bar->show();
    }
    if (m_remaining) {
        m_remaining->clear();
        m_remaining->show();
    }
    Q_EMIT runningChanged(true);
}

void WizardProgress::progressStarted(bool knownEnd)
{
    if (!m_running)
        begin();
    if (m_bar) {
        m_bar->setRange(0, knownEnd ? 100 : 0);
        m_bar->setValue(0);
    }
    breathe();
}

void WizardProgress::progressChanged(int percent)
{
    percent = std::clamp(percent, 0, 100);
    if (m_bar) {
        m_bar->setRange(0, 100);
        m_bar->setValue(percent);
    }
    if (m_remaining && m_running)
        m_remaining->setText(remainingText(m_runTime.elapsed(), percent));
    breathe();
}

bool WizardProgress::isCancelled() const
{
    breathe();
    return m_cancelled;
}

void WizardProgress::progressFinished()
{
    m_running = false;
    if (m_bar)
        m_bar->hide();
    if (m_remaining)
        m_remaining->hide();
    Q_EMIT runningChanged(false);
}

bool WizardProgress::isRunning() const
{
    return m_running;
}

void WizardProgress::cancel()
{
    m_cancelled = true;
}

void WizardProgress::breathe() const
{
    // A handler that runs here may ask for the progress again.
    if (!m_running || m_breathing || m_sinceEvents.elapsed() < breathInterval)
        return;
    m_breathing = true;
    QCoreApplication::processEvents();
    m_breathing = false;
    m_sinceEvents.restart();
}

} // namespace kpBase
