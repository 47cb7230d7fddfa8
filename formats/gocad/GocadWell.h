// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "export/NumberColumns.h"
#include "formats/gocad/GocadExportSettings.h"

#include <optional>

namespace kpFormats
{

/// The path of a well in the file.
struct GocadWell
{
    std::vector<int> vertices;  ///< those that have a place and a depth
    std::vector<double> depths; ///< along the hole, one per vertex, increasing, in the unit of the file
    QString attribute;          ///< which gave the depths; empty when they are computed
};

/// An object that goes into the file, with its properties.
struct GocadEntry
{
    const ModelObject* object;
    std::vector<NumberColumn> columns;
    std::optional<GocadWell> well; ///< when it is written as one
};

/// Whether the object is to be written as a well, as far as the settings say.
bool isGocadWell(const ModelObject& object, const GocadExportSettings& settings);
/// The well's path; nothing, and a finding, where it has to be written as a line, because it has several paths or no depths
/// that increase.
std::optional<GocadWell> gocadWellOf(const ModelObject& object, const GocadExportSettings& settings,
                                     Findings& findings);

} // namespace kpFormats
