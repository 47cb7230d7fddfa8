// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/AbstractProgress.h"

namespace kpFormats
{

/// The progress of one step as a share of a whole: steps have weights (vertices, cells), next() goes to the next one.
/// A whole of null is allowed and never cancelled.
class ShareOfProgress : public kpBase::AbstractProgress
{
public:
    ShareOfProgress(kpBase::AbstractProgress* whole, double totalWeight)
        : m_whole(whole)
        , m_total(totalWeight > 0 ? totalWeight : 1.0)
    {
    }

    /// The step before is done, one of \a weight begins.
    void next(double weight)
    {
        m_done += m_current;
        m_current = weight;
    }
    void progressStarted(bool) override {}
    void progressChanged(int percent) override
    {
        if (m_whole)
            m_whole->progressChanged(static_cast<int>((m_done * 100.0 + m_current * percent) / m_total));
    }
    bool isCancelled() const override { return m_whole && m_whole->isCancelled(); }
    void progressFinished() override {}

private:
    kpBase::AbstractProgress* m_whole;
    double m_total;
    double m_done = 0;
    double m_current = 0;
};

} // namespace kpFormats
