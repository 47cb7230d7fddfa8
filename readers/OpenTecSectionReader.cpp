// SPDX-License-Identifier: MIT
#include "readers/OpenTecSectionReader.h"

#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/OpenTecReader.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// The line of a section on the map, by the distance along it.
class Trace
{
public:
    explicit Trace(const std::vector<std::array<double, 2>>& points)
    {
        for (const auto& point : points) {
            if (!m_points.empty() && m_points.back() == point)
                continue;
            m_before.push_back(m_points.empty()
                                   ? 0.0
                                   : m_before.back()
                                         + std::hypot(point[0] - m_points.back()[0], point[1] - m_points.back()[1]));
            m_points.push_back(point);
        }
    }

    bool hasLength() const { return m_points.size() > 1 && std::isfinite(m_before.back()); }
    double length() const { return m_before.back(); }
    /// Straight on beyond the ends.
    std::array<double, 2> at(double distance) const
    {
        const auto after = std::upper_bound(m_before.begin() + 1, m_before.end() - 1, distance);
        const auto leg = static_cast<std::size_t>(after - m_before.begin()) - 1;
        const double share = (distance - m_before[leg]) / (m_before[leg + 1] - m_before[leg]);
        const auto& from = m_points[leg];
        const auto& to = m_points[leg + 1];
        return {from[0] + share * (to[0] - from[0]), from[1] + share * (to[1] - from[1])};
    }

private:
    std::vector<std::array<double, 2>> m_points;
    std::vector<double> m_before; ///< length of the trace up to each point
};

ObjectType typeNamed(const QString& name)
{
    const auto& types = allObjectTypes();
    const auto found =
        std::find_if(types.begin(), types.end(), [&name](ObjectType type) { return typeName(type) == name; });
    return found == types.end() ? ObjectType::Polylines : *found;
}

} // namespace

bool isOpenTecSection(const QString& path)
{
    QFile file(path);
    constexpr qint64 enough = 200;
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray begin = file.read(enough);
    return begin.startsWith("version ") && begin.contains("\nunit_z_depth ");
}

LoadNotes readOpenTecSection(Model& model, const QString& path, const LoadOptions& options)
{
    OpenTecSection read = readOpenTec(path);
    const Trace trace(read.trace);
    if (!trace.hasLength())
        throw LoadError(path, QStringLiteral("it does not say where the section lies on the map"),
                        QStringLiteral("export it with its trace"));
    qint64 beside = 0;
    qint64 beyond = 0;
    CrossSection drawing;
    for (const OpenTecSection::Segment& source : read.segments) {
        SectionSegment segment;
        segment.name = source.name;
        segment.type = typeNamed(source.type);
        segment.color = QColor(source.color);
        for (const auto& point : source.points) {
            beside += point[1] != 0.0 ? 1 : 0;
            beyond += point[0] < 0.0 || point[0] > trace.length() ? 1 : 0;
            const std::array<double, 2> place = trace.at(point[0]);
            segment.distance.push_back(point[0]);
            segment.x.push_back(place[0]);
            segment.y.push_back(place[1]);
            segment.z.push_back(-point[2]);
        }
        drawing.segments.push_back(std::move(segment));
    }
    QString name = options.name.isEmpty() ? read.name : options.name;
    if (name.isEmpty())
        name = QFileInfo(path).completeBaseName();
    ModelObject section = newObject(path, options, ObjectType::CrossSections, name, QStringLiteral("Sections"));
    section.lengthUnit = QStringLiteral("m");
    std::vector<double> x;
    std::vector<double> y;
    for (const auto& point : read.trace) {
        x.push_back(point[0]);
        y.push_back(point[1]);
    }
    section.parts = {{0, static_cast<int>(x.size()), false, false}};
    std::vector<double> z(x.size(), 0.0);
    setCoordinates(section, std::move(x), std::move(y), std::move(z));
    section.section = std::make_shared<const CrossSection>(std::move(drawing));
    if (read.age != 0.0)
        section.objectAttributes.push_back({QStringLiteral("age"), AttributeKind::Real, QString(), read.age});
    model.add(std::move(section));
    LoadNotes notes;
    if (beside > 0)
        notes.append(QStringLiteral("%1: %2 points lie beside the section and were put on it").arg(path).arg(beside));
    if (beyond > 0)
        notes.append(QStringLiteral("%1: %2 points lie beyond the ends of the trace, which was taken to go straight on")
                         .arg(path)
                         .arg(beyond));
    return notes;
}

} // namespace kpFormats
