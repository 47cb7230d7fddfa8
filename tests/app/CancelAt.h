// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/AbstractProgress.h"

/// Cancels when a percentage is reached.
class CancelAt : public kpBase::AbstractProgress
{
public:
    explicit CancelAt(int percent)
        : m_limit(percent)
    {
    }
    void progressStarted(bool) override {}
    void progressChanged(int percent) override
    {
        reached = percent;
        m_cancelled = m_cancelled || percent >= m_limit;
    }
    bool isCancelled() const override { return m_cancelled; }
    void progressFinished() override {}

    int reached = 0;

private:
    int m_limit;
    bool m_cancelled = false;
};
