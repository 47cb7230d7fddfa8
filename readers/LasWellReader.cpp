// SPDX-License-Identifier: MIT
#include "readers/LasWellReader.h"

#include "readers/LasFile.h"
#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/TextTable.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <optional>

namespace kpFormats
{

namespace
{

std::optional<double> headerNumber(const LasFile& las, const char* names)
{
    for (const QString& name : QString::fromLatin1(names).split(QLatin1Char(' '))) {
        const std::string text = las.parameters.value(name, las.wellSection.value(name)).toStdString();
        const auto number = numberOf(text);
        if (number && std::isfinite(*number))
            return number;
    }
    return std::nullopt;
}

/// Takes a curve out of the list. \returns nothing when there is none of that name
std::optional<std::vector<double>> takeCurve(std::vector<AttributeColumn>& curves, const char* name)
{
    const auto found = std::find_if(curves.begin(), curves.end(),
                                    [name](const AttributeColumn& curve) { return curve.name == QLatin1String(name); });
    if (found == curves.end())
        return std::nullopt;
    std::vector<double> values = *found->numbers;
    for (std::size_t row = 0; found->missing && row < values.size(); ++row)
        values[row] = (*found->missing)[row] ? std::nan("") : values[row];
    curves.erase(found);
    return values;
}

bool has(const std::vector<AttributeColumn>& curves, const char* name)
{
    return std::any_of(curves.begin(), curves.end(),
                       [name](const AttributeColumn& curve) { return curve.name == QLatin1String(name); });
}

} // namespace

bool isLasLog(const QString& path)
{
    QFile file(path);
    return path.endsWith(QLatin1String(".las"), Qt::CaseInsensitive) && !QFileInfo(path).isDir()
           && file.open(QIODevice::ReadOnly) && !file.read(4).startsWith("LASF");
}

LoadNotes readLasWell(Model& model, const QString& path, const LoadOptions& options)
{
    LasFile las = readLasFile(path, options.encoding);
    const std::size_t rows = las.depths.size();
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    const bool vertical = las.index.contains(QLatin1String("vertical"), Qt::CaseInsensitive);
    if (has(las.curves, "X") && has(las.curves, "Y") && has(las.curves, "Z")) {
        x = *takeCurve(las.curves, "X");
        y = *takeCurve(las.curves, "Y");
        z = *takeCurve(las.curves, "Z");
    } else {
        const auto east = headerNumber(las, "X XCOORD");
        const auto north = headerNumber(las, "Y YCOORD");
        const auto reference = headerNumber(las, "EREF EKB KB");
        if (!east || !north)
            throw LoadError(path, QStringLiteral("it does not say where the well is"),
                            QStringLiteral("load a table of collars and name this file in its logs"));
        x.assign(rows, *east);
        y.assign(rows, *north);
        for (const double depth : las.depths)
            z.push_back(reference ? *reference - depth : std::nan(""));
        las.notes.append(QStringLiteral("%1: the well is taken as vertical").arg(path));
    }
    const QString name = !options.name.isEmpty() ? options.name
                         : las.well.isEmpty()    ? QFileInfo(path).completeBaseName()
                                                 : las.well;
    ModelObject well = newObject(path, options, ObjectType::Wells, name, QStringLiteral("Wells"));
    if (well.lengthUnit.isEmpty())
        well.lengthUnit = las.depthUnit;
    well.hasZ = std::any_of(z.begin(), z.end(), [](double height) { return std::isfinite(height); });
    if (!well.hasZ)
        z.assign(rows, 0.0);
    well.parts.push_back({0, static_cast<int>(rows), false, false});
    setCoordinates(well, std::move(x), std::move(y), std::move(z));
    AttributeColumn depth;
    depth.name = vertical ? QStringLiteral("TVD") : QStringLiteral("MD");
    depth.unit = las.depthUnit;
    depth.numbers = std::make_shared<const std::vector<double>>(std::move(las.depths));
    well.vertexAttributes.push_back(std::move(depth));
    for (AttributeColumn& curve : las.curves)
        well.vertexAttributes.push_back(std::move(curve));
    model.add(std::move(well));
    return las.notes;
}

} // namespace kpFormats
