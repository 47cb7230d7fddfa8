// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/AbstractProgress.h"
#include "host/ui/kpHostUiExport.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QLabel;
class QProgressBar;
class QWidget;

namespace kpBase
{

/// Progress shown in a wizard: a bar with the percentage and the time that remains. It lets the event loop run for a
/// moment at most every 50 ms, so that the window stays alive and a cancel is noticed within 200 ms of a call.
class KPHOST_UI_EXPORT WizardProgress : public QObject, public AbstractProgress
{
    Q_OBJECT

public:
    /// \a bar and \a remaining are shown while a run is on; either may be null.
    WizardProgress(QProgressBar* bar, QLabel* remaining, QObject* parent = nullptr);

    void progressStarted(bool knownEnd) override;
    void progressChanged(int percent) override;
    bool isCancelled() const override;
    void progressFinished() override;

    /// True from begin() or progressStarted() to progressFinished().
    bool isRunning() const;
    /// Announces a run before its first percentage and forgets an earlier cancel.
    void begin();

public Q_SLOTS:
    void cancel();

Q_SIGNALS:
    void runningChanged(bool running);

private:
    void breathe() const;

    QPointer<QProgressBar> m_bar;
    QPointer<QLabel> m_remaining;
    bool m_running = false;
    bool m_cancelled = false;
    QElapsedTimer m_runTime;
    mutable QElapsedTimer m_sinceEvents;
    mutable bool m_breathing = false;
};

} // namespace kpBase
