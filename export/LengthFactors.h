// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "model/ModelObject.h"
#include "model/OutputUnit.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// What the coordinates of an object are multiplied with on the way to a file.
struct KPFORMATS_EXPORT LengthFactors
{
    LengthFactors(const ModelObject& object, OutputUnit unit, bool zIsElevation);

    double flat;        ///< of x and y; 1 for degrees, which are no lengths
    double height;      ///< of z; negative where depths are written
    QString flatUnit;   ///< of x and y in the file, "degrees" or a length unit
    QString heightUnit; ///< of z
};

/// The unit for a format that knows metres and feet alone: \a chosen, or the one that is nearest to the object's.
/// \a format and \a file are for messages. \throws ExportError when another is chosen
KPFORMATS_EXPORT OutputUnit metreOrFoot(const ModelObject& object, OutputUnit chosen, const QString& format,
                                        const QString& file);
/// Notes where that is not the object's own, which was asked for.
KPFORMATS_EXPORT void noteMetreOrFoot(const ModelObject& object, OutputUnit chosen, OutputUnit unit,
                                      const QString& format, Findings& findings);

} // namespace kpFormats
