// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/AbstractProgress.h"

namespace kpFormats
{

/// Turns small pieces of work into percentages, and asks whether the user cancelled often enough but not for each.
class ProgressTicker
{
public:
    /// \a progress may be null; \a total is the sum of what step() will be given.
    ProgressTicker(kpBase::AbstractProgress* progress, double total)
        : m_progress(progress)
        , m_total(total > 0 ? total : 1.0)
    {
    }

    /// Work worth \a weight is done.
    void step(double weight)
    {
        m_done += weight;
        if (m_done >= m_next)
            report();
    }
    /// One item of a loop is done. \returns false once the user has cancelled
    bool next()
    {
        step(1.0);
        return !m_cancelled;
    }
    /// Asks whether the user has cancelled, where no work can be counted yet.
    bool poll()
    {
        report();
        return m_cancelled;
    }
    /// True once the user has cancelled.
    bool cancelled() const { return m_cancelled; }

private:
    void report()
    {
        constexpr double workBetween = 2000; // vertices: well below a millisecond
        m_next = m_done + workBetween;
        if (!m_progress || m_cancelled)
            return;
        const int percent = static_cast<int>(m_done < m_total ? 100.0 * m_done / m_total : 100.0);
        if (percent != m_percent)
            m_progress->progressChanged(percent);
        m_percent = percent;
        m_cancelled = m_progress->isCancelled();
    }

    kpBase::AbstractProgress* m_progress;
    double m_total;
    double m_done = 0;
    double m_next = 0;
    int m_percent = -1;
    bool m_cancelled = false;
};

} // namespace kpFormats
