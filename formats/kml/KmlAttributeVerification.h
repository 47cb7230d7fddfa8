// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Verification.h"
#include "formats/kml/KmlExpectation.h"

namespace kpFormats
{

/// Compares the rows of the table in a placemark's description with the chosen attributes of its object and vertex.
void compareKmlAttributes(const KmlExpectedFeature& feature, const QString& description,
                          const ExportSelection& selection, Verification& result);

} // namespace kpFormats
