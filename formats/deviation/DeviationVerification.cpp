// SPDX-License-Identifier: MIT
#include "formats/deviation/DeviationVerification.h"

#include "export/NumberColumns.h"
#include "export/WellDepths.h"
#include "readers/DeviationReader.h"
#include "readers/WellPath.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// A column that the reader gives. \throws std::runtime_error when it is not there
NumberColumn columnOf(const ModelObject& read, const char* name)
{
    for (const AttributeColumn& column : read.vertexAttributes) {
        if (column.name == QLatin1String(name))
            return NumberColumn(column);
    }
    throw std::runtime_error(std::string("the column ") + name + " is missing");
}

/// The number behind "elevation" in the remarks; NaN where none is.
double writtenReference(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nan("");
    const QByteArray remark = "# datum: MD 0 and TVD 0 lie at the elevation ";
    for (QByteArray line = file.readLine(); line.startsWith('#'); line = file.readLine()) {
        const int end = line.indexOf(' ', remark.size());
        if (line.startsWith(remark) && end > 0)
            return line.mid(remark.size(), end - remark.size()).toDouble();
    }
    return std::nan("");
}

void compareRows(const ModelObject& object, const ModelObject& read, const DeviationExportSettings& settings,
                 OutputUnit unit, double distance, double reference, Verification& result)
{
    Findings told;
    const WellDepths depths(object, unit, QString(), told);
    const double half = 0.5 * std::pow(10.0, -settings.decimals);
    result.compareValue(depths.reference(), reference, 0.0,
                        [&] { return QStringLiteral("%1, elevation of the datum").arg(object.name); });
    const NumberColumn measured = columnOf(read, "MD");
    const NumberColumn vertical = columnOf(read, "TVD");
    const NumberColumn inclination = columnOf(read, "INC");
    const NumberColumn azimuth = columnOf(read, "AZI");
    constexpr double degree = M_PI / 180.0;
    std::vector<WellStation> stations;
    for (int row = 0; row < read.vertexCount(); ++row)
        stations.push_back({measured.at(row), azimuth.at(row) * degree, M_PI / 2.0 - inclination.at(row) * degree});
    const WellPath path(stations);
    const auto begin = path.at(stations.front().depth);
    std::array<double, 3> first{};
    int row = 0;
    for (std::size_t vertex = 0; vertex < depths.size() && result.good(); ++vertex) {
        const auto& place = depths.place(vertex);
        if (!std::isfinite(depths.measured(vertex)) || !std::isfinite(place[0] + place[1] + place[2]))
            continue;
        if (row >= read.vertexCount())
            return result.fail(QStringLiteral("%1: vertex %2 is missing").arg(object.name).arg(vertex + 1));
        const auto index = static_cast<std::size_t>(row);
        const auto where = [&] { return QStringLiteral("%1, vertex %2").arg(object.name).arg(vertex + 1); };
        result.comparePosition(place, {(*read.x)[index], (*read.y)[index], (*read.z)[index]}, where);
        result.compareValue(depths.measured(vertex), measured.at(row), half,
                            [&] { return where() + QStringLiteral(", MD"); });
        result.compareValue(depths.vertical(vertex), vertical.at(row), half,
                            [&] { return where() + QStringLiteral(", TVD"); });
        if (row == 0)
            first = place;
        const auto there = path.at(measured.at(row));
        // Depths are rounded, and each arc with them.
        const double allowed =
            std::max(deviationPathAllowance(stations.back().depth - stations.front().depth), 1.01 * distance)
            + half * (row + 1);
        for (std::size_t axis = 0; axis < 3; ++axis)
            result.compareValue(place[axis] - first[axis], there[axis] - begin[axis], allowed,
                                [&] { return where() + QStringLiteral(", place by the angles"); });
        ++row;
    }
    result.compareCount(object.name, QStringLiteral("rows"), row, read.vertexCount());
}

} // namespace

Verification verifyDeviation(const ModelObject& object, const QString& path, const DeviationExportSettings& settings,
                             OutputUnit unit, double distance)
{
    const QString written = writtenUnit(object.lengthUnit, unit);
    Verification result(QStringLiteral("the program's deviation reader"),
                        Allowance::ofDecimals(settings.decimals, written));
    try {
        Model model;
        const LoadNotes notes = readDeviation(model, path, LoadOptions());
        if (!notes.isEmpty())
            result.fail(notes.front());
        const ModelObject& read = model.objects().front();
        result.compareSame(QStringLiteral("well"), object.name, object.name.simplified(), read.name);
        result.compareSame(QStringLiteral("unit"), object.name, written, read.lengthUnit);
        compareRows(object, read, settings, unit, distance, writtenReference(path), result);
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
    }
    return result;
}

} // namespace kpFormats
