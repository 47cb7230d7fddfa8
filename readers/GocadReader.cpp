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
        throw LoadError(path, QStringLiteral("there is no vertex set, line or surface in it"),
                        QStringLiteral("check the file"));
    int borders = 0;
    for (GocadObject& source : objects) {
        borders += source.borders;
        const bool line = source.type == QLatin1String("PLine");
        const ObjectType type =
            line ? ObjectType::Polylines
                 : (source.type == QLatin1String("TSurf") ? ObjectType::MeshSurfaces : ObjectType::VertexClouds);
        QString name = options.name.isEmpty() ? source.name : options.name;
        if (name.isEmpty())
            name = QFileInfo(path).completeBaseName();
        ModelObject object = newObject(path, options, type, name, QFileInfo(path).completeBaseName());
        const QColor color = colorOf(source.color);
        if (options.color.isEmpty())
            object.color = color;
        if (source.zIsDepth)
            std::transform(source.z.begin(), source.z.end(), source.z.begin(), [](double depth) { return -depth; });
        if (line) {
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
        addProperties(object, source);
        model.add(std::move(object));
    }
    LoadNotes notes;
    if (borders > 0)
        notes.append(QStringLiteral("%1: %2 marks of borders (BSTONE, BORDER) were left out; borders are those of the "
                                    "triangles")
                         .arg(path)
                         .arg(borders));
    if (!others.isEmpty()) {
        const int count = others.size();
        others.removeDuplicates();
        notes.append(QStringLiteral("%1: %2 objects of other types were left out: %3")
                         .arg(path, QString::number(count), others.join(QStringLiteral(", "))));
    }
    return notes;
}

} // namespace kpFormats
