// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkImage.h"

#include "export/ExportError.h"
#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "formats/vtk/VtkColumns.h"
#include "formats/vtk/VtkObjects.h"

#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

std::string numbersText(const char* name, const std::vector<double>& numbers)
{
    std::string text = std::string(" ") + name + "=\"";
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        text += index == 0 ? "" : " ";
        appendShortest(text, numbers[index]);
    }
    return text + '"';
}

/// Where the axes of a grid lead: a step back along an axis is a step on along its opposite.
std::vector<double> directionOf(const GridGeometry& grid)
{
    const double angle = grid.rotation * M_PI / 180.0;
    const double cosine = grid.rotation == 0.0 ? 1.0 : std::cos(angle);
    const double sine = grid.rotation == 0.0 ? 0.0 : std::sin(angle);
    const double right = grid.stepX < 0 ? -1.0 : 1.0;
    const double back = grid.stepY < 0 ? -1.0 : 1.0;
    return {right * cosine, -back * sine, 0.0, right * sine, back * cosine, 0.0, 0.0, 0.0, right * back};
}

} // namespace

QString vtkHeightName(const VtkExportSettings& settings)
{
    return settings.zIsElevation ? QStringLiteral("elevation") : QStringLiteral("depth");
}

VtkDocument vtkImage(const PlannedFile& file, const ExportSelection& selection, const VtkExportSettings& settings,
                     Findings& findings)
{
    noteMissingAttributes(file.objects, selection, findings);
    const ModelObject& object = *file.objects.front();
    if (!object.grid || object.grid->columns < 1 || object.grid->rows < 1)
        throw ExportError(file.path, QStringLiteral("the grid %1 is empty").arg(object.name),
                          QStringLiteral("choose a grid with nodes"));
    const GridGeometry& grid = *object.grid;
    const LengthFactors by(object, settings.lengthUnit, settings.zIsElevation);
    const std::string extent = "0 " + std::to_string(grid.columns - 1) + " 0 " + std::to_string(grid.rows - 1) + " 0 0";
    VtkDocument document;
    document.type = "ImageData";
    document.dataSet = " WholeExtent=\"" + extent + '"'
                       + numbersText("Origin", {grid.originX * by.flat, grid.originY * by.flat, 0.0})
                       + numbersText("Spacing", {std::abs(grid.stepX) * by.flat, std::abs(grid.stepY) * by.flat, 1.0})
                       + numbersText("Direction", directionOf(grid));
    document.piece = " Extent=\"" + extent + '"';
    document.rows = object.vertexCount();
    document.fieldData = vtkObjects(file.objects, settings, findings);

    VtkArray heights;
    heights.name = vtkHeightName(settings);
    heights.tuples = object.vertexCount();
    heights.unit = writtenUnit(object.lengthUnit, settings.lengthUnit);
    heights.write = [&object, by](VtkValues& values) {
        for (const double z : *object.z) {
            values.real(object.hasZ ? z * by.height : std::numeric_limits<double>::quiet_NaN());
            if (!values.next())
                return;
        }
    };
    VtkSection pointData{"PointData", {}};
    UniqueNames names;
    names.take(heights.name);
    pointData.arrays.push_back(std::move(heights));
    const VtkRows rows = [count = object.vertexCount()](const auto& visit) {
        for (int node = 0; node < count && visit(0, node); ++node) {
        }
    };
    for (const VtkPlace place : {VtkPlace::Vertices, VtkPlace::Object}) {
        for (VtkColumn& column : vtkColumns(file.objects, place, selection, settings, names, findings))
            pointData.arrays.push_back(vtkArrayOf(std::move(column), object.vertexCount(), rows));
    }
    document.sections = {std::move(pointData), {"CellData", {}}};
    return document;
}

} // namespace kpFormats
