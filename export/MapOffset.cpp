// SPDX-License-Identifier: MIT
#include "export/MapOffset.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

/// How far single precision may move something, in the unit of the file.
constexpr double tolerated = 1e-4;
/// Half of the last bit of a number around 1.
constexpr double halfOfLastBit = 1.0 / (1 << 24);

struct Range
{
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();

    void add(double number)
    {
        if (std::isfinite(number)) {
            least = std::min(least, number);
            most = std::max(most, number);
        }
    }
    double largest() const { return least > most ? 0.0 : std::max(std::abs(least), std::abs(most)); }
    /// The middle, to the first digit of the width.
    double roundMiddle() const
    {
        const double width = most - least;
        const double step = width > 0 ? std::pow(10.0, std::floor(std::log10(width))) : 1.0;
        // Powers below 1 are no exact numbers, their inverses are.
        const double middle = least + width / 2;
        return step >= 1.0 ? std::round(middle / step) * step
                           : std::round(middle * std::round(1.0 / step)) / std::round(1.0 / step);
    }
};

} // namespace

std::vector<SettingChoice> coordinateOrigins()
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("kpFormats::CommonSettings", text); };
    return {{QStringLiteral("automatic"), tr("near the object where single precision needs it")},
            {QStringLiteral("map"), tr("that of the map")},
            {QStringLiteral("local"), tr("near the object")}};
}

QString coordinateOriginLabel()
{
    return QCoreApplication::translate("kpFormats::CommonSettings", "Origin");
}

QString coordinateOriginDescription()
{
    return QCoreApplication::translate(
        "kpFormats::CommonSettings",
        "coordinates as on the map, or counted from a stated place near the object, for single precision");
}

MapOffset::MapOffset(const std::vector<const ModelObject*>& objects, OutputUnit unit, bool zIsElevation,
                     CoordinateOrigin origin)
{
    std::array<Range, 3> ranges;
    for (const ModelObject* object : objects) {
        const LengthFactors by(*object, unit, zIsElevation);
        for (std::size_t vertex = 0; vertex < object->x->size(); ++vertex) {
            ranges[0].add((*object->x)[vertex] * by.flat);
            ranges[1].add((*object->y)[vertex] * by.flat);
            ranges[2].add((*object->z)[vertex] * by.height);
        }
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double largest = ranges[axis].largest();
        const bool needed = origin == CoordinateOrigin::Local
                            || (origin == CoordinateOrigin::Automatic && largest * halfOfLastBit > tolerated);
        if (needed && largest > 0)
            m_offset[axis] = ranges[axis].roundMiddle();
        for (const double end : {ranges[axis].least, ranges[axis].most}) {
            if (std::isfinite(end))
                m_largest = std::max(m_largest, std::abs(end - m_offset[axis]));
        }
    }
}

double MapOffset::mostRounding() const
{
    return m_largest * halfOfLastBit;
}

bool MapOffset::isRoundingLarge() const
{
    return mostRounding() > tolerated;
}

std::string MapOffset::text() const
{
    if (isZero())
        return {};
    std::string text = "offset to add:";
    for (const double number : m_offset) {
        text += ' ';
        appendShortest(text, number);
    }
    return text;
}

void MapOffset::note(const FindingObject& object, Findings& findings) const
{
    if (!isZero())
        findings.note(finding::countedFromAnOffset, object, 1, QString::fromStdString(text()));
}

QString MapOffset::sidecarExtension(const QString& target)
{
    const QString own = QFileInfo(target).suffix();
    return own.isEmpty() ? QStringLiteral("offset.json") : own + QStringLiteral(".offset.json");
}

void MapOffset::writeSidecar(const QString& path, const QString& target, const ModelObject& object, OutputUnit unit,
                             bool zIsElevation) const
{
    const QFileInfo file(path);
    if (isZero() || !file.isFile())
        return;
    const QJsonObject content{
        {QStringLiteral("meaning"), QStringLiteral("add the offset to every coordinate of the file")},
        {QStringLiteral("file"), file.fileName()},
        {QStringLiteral("offset"), QJsonArray{m_offset[0], m_offset[1], m_offset[2]}},
        {QStringLiteral("lengthUnit"), writtenUnit(object.lengthUnit, unit)},
        {QStringLiteral("z"), zIsElevation ? QStringLiteral("elevation") : QStringLiteral("depth")},
        {QStringLiteral("coordinateSystem"), object.crs}};
    const QString name = QStringLiteral("%1/%2.%3").arg(file.path(), file.completeBaseName(), sidecarExtension(path));
    BlockWriter out(
        name,
        QStringLiteral("%1/%2.%3").arg(QFileInfo(target).path(), file.completeBaseName(), sidecarExtension(path)));
    out.text() += QJsonDocument(content).toJson().toStdString();
    out.close();
}

} // namespace kpFormats
