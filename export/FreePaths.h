// SPDX-License-Identifier: MIT
#pragma once

#include "export/FilePlan.h"
#include "export/SafeNames.h"
#include "model/kpFormatsExport.h"

#include <map>

namespace kpFormats
{

/// Paths beside which nothing stands: "contacts_2.csv" where there is a "contacts.csv", or a "contacts" of any other
/// extension, since files that belong together share their name.
class KPFORMATS_EXPORT FreePaths
{
public:
    /// Keeps clear of the planned files too.
    explicit FreePaths(const std::vector<PlannedFile>& planned);

    QString take(const QString& path);

private:
    UniqueNames& namesIn(const QString& folder);

    std::map<QString, UniqueNames> m_names; ///< by folder
};

} // namespace kpFormats
