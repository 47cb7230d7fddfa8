// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"
#include "export/FindingObject.h"
#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// Something that was lost or changed on the way to a file, counted.
struct KPFORMATS_EXPORT Finding
{
    const FindingKind* sort; ///< a constant
    QString value;           ///< told with the kind; empty when it has none
    FindingObject object;
    qint64 count = 0;
    QString example; ///< the first case in words

    /// "missing attribute", "missing value of an active cell written as -9" ...
    QString kind() const;
    /// The sentence for so many cases.
    QString text(qint64 cases) const;
};

} // namespace kpFormats
