// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <string>
#include <vector>

namespace kpBaseExport
{

/// A sheet on which the user chooses attributes. The wizard finds it among a format's sheets.
class KPBASEEXPORT_EXPORT AttributeNamesSheet
{
public:
    virtual ~AttributeNamesSheet();

    /// Names of the chosen attributes, in UTF-8.
    virtual std::vector<std::string> selectedAttributeNames() = 0;
};

} // namespace kpBaseExport
