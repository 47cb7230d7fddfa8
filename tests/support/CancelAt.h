// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/AbstractProgress.h"

/// Cancels when a percentage is reached; notes what it was told and how often it was asked.
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
        backwards = backwards || percent < reached;
        reached = percent;
    }
    bool isCancelled() const override
    {
        ++asked;
        return reached >= m_limit;
    }
    void progressFinished() override {}

    int reached = -1;
    bool backwards = false;
    mutable int asked = 0;

private:
    int m_limit;
};
