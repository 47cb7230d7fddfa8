// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/AbstractProgress.h"

#include <QtGlobal>

namespace refhost
{

/// Progress and cancel of a loop over very many small items: cheap enough to be asked once per item.
class LoopProgress
{
public:
    /// \a progress may be null; \a total is the number of items.
    LoopProgress(kpBase::AbstractProgress* progress, qint64 total)
        : m_progress(progress)
        , m_total(total > 0 ? total : 1)
    {
    }

    /// One item is done. \returns false when the user has cancelled; then it stays so.
    bool next() { return ++m_done < m_lookAt || look(); }
    bool cancelled() const { return m_cancelled; }
    kpBase::AbstractProgress* whole() const { return m_progress; }

private:
    static constexpr qint64 interval = 4096;

    bool look()
    {
        m_lookAt = m_cancelled ? 0 : m_done + interval;
        if (m_progress && !m_cancelled) {
            m_progress->progressChanged(static_cast<int>(m_done * 100 / m_total));
            m_cancelled = m_progress->isCancelled();
            if (m_cancelled)
                m_lookAt = 0;
        }
        return !m_cancelled;
    }

    kpBase::AbstractProgress* m_progress;
    qint64 m_total;
    qint64 m_done = 0;
    qint64 m_lookAt = interval;
    bool m_cancelled = false;
};

} // namespace refhost
