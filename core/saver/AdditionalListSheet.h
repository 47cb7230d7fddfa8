// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

class QStringList;

namespace kpBaseExport
{

/// The sheet that takes the attributes which a saver requires for the chosen objects.
class KPBASEEXPORT_EXPORT AdditionalListSheet
{
public:
    virtual ~AdditionalListSheet();

    virtual void setAdditionalList(const QStringList& names) = 0;
};

} // namespace kpBaseExport
