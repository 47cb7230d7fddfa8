// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "export/ExportReport.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// What a run will make of a file, as far as it can be told before writing.
struct Foresight
{
    PlannedFile file;                        ///< without the objects that will be left out
    std::vector<FailedObject> failedObjects; ///< those
    QString error;                           ///< why the whole file is refused: cause and cure; empty when it is not
};

/// Looks for what the run and its plan both go by: unsound objects, and what the format refuses. What the format
/// cannot carry is noted in \a losses.
KPFORMATS_EXPORT Foresight foresee(const ExportFormat& format, const PlannedFile& file,
                                   const ExportSelection& selection, Findings& losses);

/// For formats that write positions. \throws ExportError when the objects of a file have none
KPFORMATS_EXPORT void requirePositions(const PlannedFile& file);

/// The error of a file of which every object has been left out.
KPFORMATS_EXPORT QString noneLeftError(const std::vector<FailedObject>& failed);

} // namespace kpFormats
