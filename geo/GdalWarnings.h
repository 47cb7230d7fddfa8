// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace kpFormats
{

/// Collects what GDAL warns of on this thread while it lives; of several the one made last. Warnings that differ in
/// their numbers only are one.
class KPFORMATS_EXPORT GdalWarnings
{
public:
    GdalWarnings();
    ~GdalWarnings();
    GdalWarnings(const GdalWarnings&) = delete;
    GdalWarnings& operator=(const GdalWarnings&) = delete;

    /// A line for each: what was said first, and how often. Of very many kinds only the first are named.
    QStringList lines() const;

    /// For the handlers of GDAL's messages.
    static void note(const char* message);

private:
    struct Kind
    {
        QString pattern; ///< without its numbers
        QString first;
        qint64 count;
    };

    std::vector<Kind> m_kinds;
    qint64 m_others = 0;
    GdalWarnings* m_outer;
};

} // namespace kpFormats
