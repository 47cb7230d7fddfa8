// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

namespace kpBaseExport
{

class OGRFeatureDetails;

/// Features that are made one at a time, when the writer asks for them.
class KPBASEEXPORTCORE_EXPORT OGRFeatureSource
{
public:
    OGRFeatureSource() = default;
    virtual ~OGRFeatureSource();
    OGRFeatureSource(const OGRFeatureSource&) = delete;
    OGRFeatureSource& operator=(const OGRFeatureSource&) = delete;

    /// How often next() will be called: for the progress.
    virtual int count() const = 0;
    /// Fills \a details, which is empty. Called for each \a index from 0 in order.
    /// \returns false when there is no feature at that place
    virtual bool next(int index, OGRFeatureDetails& details) = 0;
};

} // namespace kpBaseExport
