// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkObjects.h"

#include "formats/vtk/VtkFindings.h"

namespace kpFormats
{

QStringList vtkObjectArrays()
{
    return {QStringLiteral("object_name"), QStringLiteral("object_type"), QStringLiteral("object_set"),
            QStringLiteral("coordinate_system"), QStringLiteral("length_unit")};
}

QStringList vtkObjectTexts(const QString& array, const std::vector<const ModelObject*>& objects,
                           const VtkExportSettings& settings)
{
    QStringList texts;
    for (const ModelObject* object : objects) {
        if (array == QLatin1String("object_name"))
            texts.append(object->name);
        else if (array == QLatin1String("object_type"))
            texts.append(QString::fromStdString(typeKey(object->type)));
        else if (array == QLatin1String("object_set"))
            texts.append(object->set);
        else if (array == QLatin1String("coordinate_system"))
            texts.append(object->crs);
        else
            texts.append(writtenUnit(object->lengthUnit, settings.lengthUnit));
    }
    return texts;
}

QString vtkDirection(const VtkExportSettings& settings)
{
    return settings.zIsElevation ? QStringLiteral("up") : QStringLiteral("down");
}

std::vector<VtkArray> vtkObjects(const std::vector<const ModelObject*>& objects, const VtkExportSettings& settings,
                                 Findings& findings)
{
    std::vector<VtkArray> arrays;
    if (!settings.texts) {
        for (const ModelObject* object : objects)
            findings.note(vtkFinding::namesNotWritten, *object, 1, QStringLiteral("texts were not wanted"));
        return arrays;
    }
    for (const QString& name : vtkObjectArrays())
        arrays.push_back(vtkTexts(name, vtkObjectTexts(name, objects, settings)));
    arrays.push_back(vtkTexts(QStringLiteral("z_direction"), {vtkDirection(settings)}));
    return arrays;
}

} // namespace kpFormats
