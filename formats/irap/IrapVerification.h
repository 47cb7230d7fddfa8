// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/irap/IrapGrid.h"

namespace kpFormats
{

/// Of the numbers in the head of the text form.
constexpr int irapHeaderDecimals = 9;

/// Reads an Irap classic grid with the program's reader and compares where every node is, and its height or value, with
/// the surface.
Verification verifyIrapGrid(const ModelObject& object, const QString& path, IrapForm form,
                            const IrapGridExportSettings& settings);

} // namespace kpFormats
