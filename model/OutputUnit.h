// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>
#include <QStringList>

namespace kpFormats
{

/// The length unit in which coordinates are written. Model: that of each object.
enum class OutputUnit { Model, Metre, Foot, UsSurveyFoot, Kilometre };

/// The values of a setting of this kind, in the order of the enumeration: "model", "m", "ft", "ftUS", "km".
KPFORMATS_EXPORT QStringList outputUnitKeys();
/// What a length in \a modelUnit ("m", "ft", "ftUS", "km") is multiplied with. 1 for a unit that is not known.
KPFORMATS_EXPORT double unitFactor(const QString& modelUnit, OutputUnit unit);
/// The unit of what is written: \a modelUnit itself for Model.
KPFORMATS_EXPORT QString writtenUnit(const QString& modelUnit, OutputUnit unit);

} // namespace kpFormats
