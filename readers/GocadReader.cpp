// SPDX-License-Identifier: MIT
#include "readers/GocadReader.h"

#include "readers/GocadFile.h"
#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// A line as runs of vertices; the order says which vertex of the file stands where.
struct Runs
{
    std::vector<Part> parts;
    std::vector<int> order;
};

Runs runsOf(const GocadObject& line)
{
    Runs runs;
    const auto begin = [&runs] { runs.parts.push_back({static_cast<int>(runs.order.size()), 0, false, false}); };
    const auto add = [&runs](int vertex) {
        runs.order.push_back(vertex);
        ++runs.parts.back().count;
    };
    if (line.segments.empty()) {
        // Without segments each vertex of an ILINE is joined to the one before.
        for (std::size_t start = 0; start < line.lineStarts.size(); ++start) {
            const int end =
                start + 1 < line.lineStarts.size() ? line.lineStarts[start + 1] : static_cast<int>(line.x.size());
            begin();
            for (int vertex = line.lineStarts[start]; vertex < end; ++vertex)
                add(vertex);
        }
        return runs;
    }
    for (const auto& segment : line.segments) {
        if (runs.order.empty() || runs.parts.back().closed || runs.order.back() != segment[0]) {
            begin();
            add(segment[0]);
        }
        add(segment[1]);
        Part& part = runs.parts.back();
        part.closed = runs.order[static_cast<std::size_t>(part.first)] == segment[1];
    }
    return runs;
}

std::vector<double> reordered(const std::vector<double>& numbers, const std::vector<int>& order)
{
    std::vector<double> result;
    result.reserve(order.size());
    for (const int index : order)
        result.push_back(numbers[static_cast<std::size_t>(index)]);
    return result;
}

void addProperties(ModelObject& object, GocadObject& source)
{
    for (int index = 0; index < source.properties.size(); ++index) {
        std::vector<double>& numbers = source.values[static_cast<std::size_t>(index)];
        const bool hasNoData = static_cast<std::size_t>(index) < source.noDataValues.size();
        std::vector<unsigned char> missing;
        bool any = false;
        for (double& number : numbers) {
            const bool none =
                std::isnan(number) || (hasNoData && number == source.noDataValues[static_cast<std::size_t>(index)]);
            missing.push_back(none ? 1 : 0);
            if (none)
                number = 0.0;
            any = any || none;
        }
        AttributeColumn column;
        column.name = source.properties[index];
        column.unit = source.units.value(index) == QLatin1String("none") ? QString() : source.units.value(index);
        column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
        if (any)
            column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
        object.vertexAttributes.push_back(std::move(column));
    }
}

/// Measured depths come before what was measured there.
void addDepths(ModelObject& object, GocadObject& source)
{
    AttributeColumn column;
    column.name = QStringLiteral("MD");
    column.unit = source.depthUnit.isEmpty() ? source.unit : source.depthUnit;
    std::vector<unsigned char> missing;
    for (double& depth : source.depths) {
        missing.push_back(std::isnan(depth) ? 1 : 0);
        depth = std::isnan(depth) ? 0.0 : depth;
    }
    const auto unknown = std::count(missing.begin(), missing.end(), 1);
    if (unknown == static_cast<std::ptrdiff_t>(missing.size()))
        return;
    column.numbers = std::make_shared<const std::vector<double>>(std::move(source.depths));
    if (unknown > 0)
        column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    object.vertexAttributes.push_back(std::move(column));
}

ObjectType typeOf(const GocadObject& source)
{
    if (source.type == QLatin1String("PLine"))
        return ObjectType::Polylines;
    if (source.type == QLatin1String("TSurf"))
        return ObjectType::MeshSurfaces;
    return source.type == QLatin1String("Well") ? ObjectType::Wells : ObjectType::VertexClouds;
}

/// What was left out of all objects.
struct LeftOut
{
    int borders = 0;
    int marks = 0;
    QStringList curves;
    QStringList wells;

    LoadNotes notes(const QString& path, QStringList others) const
    {
        LoadNotes notes;
        const auto note = [&](int count, const QString& what) {
            if (count > 0)
                notes.append(QStringLiteral("%1: %2 %3").arg(path).arg(count).arg(what));
        };
        note(borders, QStringLiteral("marks of borders (BSTONE, BORDER) were left out; borders are those of the "
                                     "triangles"));
        note(marks, QStringLiteral("markers and zones of wells were left out"));
        note(curves.size(), QStringLiteral("curves of wells were left out because their values stand in files of their "
                                           "own or not at the depths of the path; the first is %1")
                                .arg(curves.value(0)));
        note(wells.size(),
             QStringLiteral(
                 "wells were left out because they have no PATH, VRTX or STATION (TVD_PATH and TVSS_PATH do not say "
                 "which way they count); the first is %1")
                 .arg(wells.value(0)));
        const int count = others.size();
        others.removeDuplicates();
        note(count, QStringLiteral("objects of other types were left out: %1").arg(others.join(QStringLiteral(", "))));
        return notes;
    }
};

QColor colorOf(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (parts.size() < 3)
        return {};
    double channels[3];
    for (int index = 0; index < 3; ++index)
        channels[index] = std::clamp(parts[index].toDouble(), 0.0, 1.0);
    return QColor::fromRgbF(channels[0], channels[1], channels[2]);
}

} // namespace

LoadNotes readGocad(Model& model, const QString& path, const LoadOptions& options)
{
    QStringList others;
    std::vector<GocadObject> objects = readGocadObjects(path, others);
    if (objects.empty())
        throw LoadError(path, QStringLiteral("there is no vertex set, line, surface or well in it"),
                        QStringLiteral("check the file"));
    LeftOut leftOut;
    for (GocadObject& source : objects) {
        leftOut.borders += source.borders;
        leftOut.marks += source.marks;
        leftOut.curves += source.curvesLeftOut;
        const ObjectType type = typeOf(source);
        const bool well = type == ObjectType::Wells;
        if (well && source.x.empty()) {
            leftOut.wells.append(source.name);
            continue;
        }
        QString name = options.name.isEmpty() ? source.name : options.name;
        if (name.isEmpty())
            name = QFileInfo(path).completeBaseName();
        ModelObject object = newObject(path, options, type, name, QFileInfo(path).completeBaseName());
        const QColor color = colorOf(source.color);
        if (options.color.isEmpty())
            object.color = color;
        if (source.zIsDepth)
            std::transform(source.z.begin(), source.z.end(), source.z.begin(), [](double depth) { return -depth; });
        if (well)
            object.parts.push_back({0, static_cast<int>(source.x.size()), false, false});
        if (type == ObjectType::Polylines) {
            const Runs runs = runsOf(source);
            object.parts = runs.parts;
            for (std::vector<double>* numbers : {&source.x, &source.y, &source.z})
                *numbers = reordered(*numbers, runs.order);
            for (std::vector<double>& numbers : source.values)
                numbers = reordered(numbers, runs.order);
        }
        static const QStringList units{QStringLiteral("m"), QStringLiteral("ft"), QStringLiteral("ftUS"),
                                       QStringLiteral("km")};
        if (units.contains(source.unit))
            object.lengthUnit = source.unit;
        setCoordinates(object, std::move(source.x), std::move(source.y), std::move(source.z));
        object.triangles = std::move(source.triangles);
        if (well)
            addDepths(object, source);
        addProperties(object, source);
        model.add(std::move(object));
    }
    if (leftOut.wells.size() == static_cast<int>(objects.size()))
        throw LoadError(path, QStringLiteral("none of its wells has a PATH, VRTX or STATION"),
                        QStringLiteral("give a file with the paths of its wells"));
    return leftOut.notes(path, others);
}

} // namespace kpFormats
