// SPDX-License-Identifier: MIT
#include "formats/irap/IrapVerification.h"

#include "export/GridNodeCheck.h"
#include "readers/IrapReader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

/// How far the file's number may be from the one meant.
double halfOfLast(double number, IrapForm form)
{
    constexpr double singlePrecision = std::numeric_limits<float>::epsilon() / 2.0;
    return form == IrapForm::Binary ? std::abs(number) * singlePrecision : 0.5 * std::pow(10.0, -irapHeaderDecimals);
}

/// Of the node farthest from the origin, to which every number of the head adds.
double positionAllowance(const GridGeometry& grid, double factor, IrapForm form)
{
    const double width = (grid.columns - 1) * std::abs(grid.stepX) * factor;
    const double height = (grid.rows - 1) * std::abs(grid.stepY) * factor;
    const double reach = std::hypot(width, height);
    const double origin = std::max(std::abs(grid.originX), std::abs(grid.originY)) * factor + reach;
    return halfOfLast(origin, form) + (grid.columns - 1) * halfOfLast(grid.stepX * factor, form)
           + (grid.rows - 1) * halfOfLast(grid.stepY * factor, form)
           + reach * halfOfLast(grid.rotation, form) * M_PI / 180.0 + 1e-15 * origin;
}

double greatestValue(const ModelObject& object)
{
    double greatest = 0.0;
    for (const double z : *object.z)
        greatest = std::isfinite(z) ? std::max(greatest, std::abs(z)) : greatest;
    return greatest;
}

} // namespace

Verification verifyIrapGrid(const ModelObject& object, const QString& path, IrapForm form,
                            const IrapGridExportSettings& settings)
{
    const LengthFactors factors(object, settings.lengthUnit, settings.zIsElevation);
    const GridGeometry& grid = *object.grid;
    const bool text = form == IrapForm::Text;
    const double half =
        text ? 0.5 * std::pow(10.0, -settings.decimals) : halfOfLast(greatestValue(object) * factors.height, form);
    Verification result(QStringLiteral("the program's Irap reader"),
                        {positionAllowance(grid, factors.flat, form), factors.flatUnit}, {half, factors.heightUnit});
    Model model;
    try {
        const LoadNotes notes = readIrapGrid(model, path, LoadOptions());
        if (!notes.isEmpty())
            result.fail(notes.front());
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    const ModelObject& read = model.objects().front();
    if (!result.compareCount(object.name, QStringLiteral("columns"), grid.columns, read.grid->columns)
        || !result.compareCount(object.name, QStringLiteral("rows"), grid.rows, read.grid->rows))
        return result;
    GridNodeCheck nodes(object, settings.attribute, factors, result);
    for (int node = 0; node < object.vertexCount() && result.good(); ++node) {
        // The file's rows and columns run the way of positive steps.
        const int column = grid.stepX < 0.0 ? grid.columns - 1 - node % grid.columns : node % grid.columns;
        const int row = grid.stepY < 0.0 ? grid.rows - 1 - node / grid.columns : node / grid.columns;
        const auto there = static_cast<std::size_t>(row * grid.columns + column);
        const double value = (*read.z)[there];
        nodes.compare(node, {(*read.x)[there], (*read.y)[there], value}, std::isnan(value),
                      text ? half : halfOfLast(value, form));
    }
    return result;
}

} // namespace kpFormats
