// SPDX-License-Identifier: MIT
#include "export/LengthFactors.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "geo/CoordinateSystems.h"

namespace kpFormats
{

LengthFactors::LengthFactors(const ModelObject& object, OutputUnit unit, bool zIsElevation)
    : flat(1.0)
    , height(unitFactor(object.lengthUnit, unit))
    , flatUnit(QStringLiteral("degrees"))
    , heightUnit(writtenUnit(object.lengthUnit, unit))
{
    if (!unitsOf(object.crs).degrees) {
        flat = height;
        flatUnit = heightUnit;
    }
    if (!zIsElevation)
        height = -height;
}

OutputUnit metreOrFoot(const ModelObject& object, OutputUnit chosen, const QString& format, const QString& file)
{
    switch (chosen) {
    case OutputUnit::Metre:
    case OutputUnit::Foot:
        return chosen;
    case OutputUnit::Model:
        return object.lengthUnit.startsWith(QLatin1String("ft")) ? OutputUnit::Foot : OutputUnit::Metre;
    case OutputUnit::UsSurveyFoot:
    case OutputUnit::Kilometre:
        break;
    }
    throw ExportError(file, QStringLiteral("%1 knows metres and feet only").arg(format),
                      QStringLiteral("set lengthUnit to m or ft"));
}

void noteMetreOrFoot(const ModelObject& object, OutputUnit chosen, OutputUnit unit, const QString& format,
                     Findings& findings)
{
    const QString written = writtenUnit(object.lengthUnit, unit);
    if (chosen == OutputUnit::Model && written != object.lengthUnit)
        findings.note(
            finding::lengthUnitChanged, object, 1,
            QStringLiteral("%1 is written in %2; %3 knows metres and feet").arg(object.lengthUnit, written, format));
}

} // namespace kpFormats
