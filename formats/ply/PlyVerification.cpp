// SPDX-License-Identifier: MIT
#include "formats/ply/PlyVerification.h"

#include "export/WrittenSurface.h"
#include "readers/PlyReader.h"

#include <cmath>

namespace kpFormats
{

namespace
{

void compareProperty(const ModelObject& object, const NumberColumn& wanted, const AttributeColumn& found,
                     Verification& result)
{
    const NumberColumn read(found);
    int next = 0;
    for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
        if (!hasPosition(object, vertex))
            continue;
        const auto where = [&] {
            return QStringLiteral("%1, vertex %2, %3").arg(object.name).arg(vertex + 1).arg(wanted.name());
        };
        const double value = wanted.at(vertex);
        const double there = read.at(next++);
        if (std::isnan(value))
            result.compareMissing(std::isnan(there), QString::number(there), where);
        else
            result.compareValue(value, there, 0.0, where);
    }
}

} // namespace

Verification verifyPly(const ModelObject& object, const QString& path, const std::vector<NumberColumn>& columns,
                       const QStringList& names, const PlyExportSettings& settings)
{
    Verification result(QStringLiteral("the program's PLY reader"), 0.0,
                        LengthFactors(object, settings.lengthUnit, settings.zIsElevation));
    Model model;
    try {
        const LoadNotes notes = readPly(model, path, LoadOptions());
        if (!notes.isEmpty())
            result.fail(notes.front());
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    const ModelObject& read = model.objects().front();
    if (!object.name.simplified().isEmpty())
        result.compareSame(QStringLiteral("name"), object.name, object.name.simplified().left(900),
                           read.name.left(900));
    if (settings.colours)
        result.compareSame(QStringLiteral("colour"), object.name, object.color.name(), read.color.name());
    result.compareSame(QStringLiteral("unit"), object.name, writtenUnit(object.lengthUnit, settings.lengthUnit),
                       read.lengthUnit);
    // The reader turns depths into elevations.
    WrittenSurface(object, settings.lengthUnit, true).compare(read, result);
    if (!result.good()
        || !result.compareCount(object.name, QStringLiteral("properties"), static_cast<qint64>(columns.size()),
                                static_cast<qint64>(read.vertexAttributes.size())))
        return result;
    for (std::size_t index = 0; index < columns.size(); ++index) {
        const AttributeColumn& found = read.vertexAttributes[index];
        result.compareSame(QStringLiteral("names of properties"), object.name, names[static_cast<int>(index)],
                           found.name);
        result.compareSame(QStringLiteral("units of properties"), object.name, columns[index].unit().simplified(),
                           found.unit);
        compareProperty(object, columns[index], found, result);
    }
    return result;
}

} // namespace kpFormats
