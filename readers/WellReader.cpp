// SPDX-License-Identifier: MIT
#include "readers/WellReader.h"

#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/ObjectUnits.h"
#include "readers/TableReader.h"
#include "readers/TextTable.h"
#include "readers/WellLogs.h"
#include "readers/WellSurvey.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace kpFormats
{

namespace
{

class CollarTable
{
public:
    CollarTable(const QString& path, const LoadOptions& options)
        : m_table(path, options.encoding)
        , m_options(options)
        , m_logs(options)
        , m_notes(notesOf(m_table))
        , m_hole(need("hole", QString(), holeNames()))
        , m_x(need("x coordinate", options.x, list("XCOLLAR X EAST EASTING")))
        , m_y(need("y coordinate", options.y, list("YCOLLAR Y NORTH NORTHING")))
        , m_z(need("elevation", options.z, list("ZCOLLAR Z ELEV ELEVATION")))
        , m_crs(wktOf(options.crs))
        , m_factor(ObjectUnits::factorTo(m_crs, options.lengthUnit))
    {
        if (!options.survey.isEmpty())
            m_survey.emplace(options);
    }

    LoadNotes read(Model& model)
    {
        for (int row = 0; row < m_table.rowCount(); ++row)
            readCollar(model, row);
        if (model.objects().empty())
            throw LoadError(m_table.path(), QStringLiteral("the table has no collar"),
                            QStringLiteral("give a row per hole"));
        note(m_withoutSurvey, "holes have no survey and consist of their collar");
        note(m_withoutPosition, "rows have no numbers for x and y and were left out");
        note(m_withoutHeight, "collars have no number for z, so that their holes have no heights");
        int strangers = 0;
        QString firstStranger;
        for (const QString& hole : m_logs.holes()) {
            if (!m_seen.contains(hole) && strangers++ == 0)
                firstStranger = hole;
        }
        if (strangers > 0)
            m_notes.append(QStringLiteral("%1: %2 holes of the logs have no collar and were left out; one is %3")
                               .arg(m_table.path())
                               .arg(strangers)
                               .arg(firstStranger));
        return (m_survey ? m_survey->notes() : LoadNotes()) + m_logs.notes() + m_notes;
    }

private:
    static QStringList list(const char* names) { return QString::fromLatin1(names).split(QLatin1Char(' ')); }

    int need(const char* what, const QString& chosen, const QStringList& usual) const
    {
        const QStringList names = chosen.isEmpty() ? usual : QStringList{chosen};
        const int column = m_table.columnNamed(names);
        if (column < 0)
            throw LoadError(m_table.path(),
                            QStringLiteral("there is no column with the %1; the columns are %2")
                                .arg(QString::fromLatin1(what), m_table.columns().join(QStringLiteral(", "))),
                            QStringLiteral("name it %1").arg(names.first()));
        return column;
    }

    void note(int count, const char* what)
    {
        if (count > 0)
            m_notes.append(
                QStringLiteral("%1: %2 %3").arg(m_table.path(), QString::number(count), QString::fromLatin1(what)));
    }

    void readCollar(Model& model, int row)
    {
        const std::string_view cell = m_table.cell(row, m_hole);
        const QString name = QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
        const auto x = m_table.number(row, m_x);
        const auto y = m_table.number(row, m_y);
        const auto z = m_table.number(row, m_z);
        m_seen.append(name);
        if (!x || !y || !std::isfinite(*x) || !std::isfinite(*y)) {
            ++m_withoutPosition;
            return;
        }
        const bool hasZ = z && std::isfinite(*z);
        m_withoutHeight += hasZ ? 0 : 1;
        std::vector<WellStation> stations;
        if (m_survey)
            stations = m_survey->stations(name, m_table.rowCount() == 1);
        std::vector<double> depths{0.0};
        if (stations.empty()) {
            m_withoutSurvey += m_logs.has(name) ? 0 : 1;
            stations.push_back({0.0, 0.0, M_PI / 2.0});
        } else {
            depths.clear();
            if (stations.front().depth > 0.0)
                depths.push_back(0.0);
            for (const WellStation& station : stations)
                depths.push_back(station.depth);
        }
        const std::vector<double> logged = m_logs.depths(name);
        if (!logged.empty()) {
            depths.insert(depths.end(), logged.begin(), logged.end());
            std::sort(depths.begin(), depths.end());
            depths.erase(std::unique(depths.begin(), depths.end()), depths.end());
        }
        addWell(model, name, {*x, *y, hasZ ? *z : 0.0}, hasZ, WellPath(std::move(stations)), depths);
    }

    void addWell(Model& model, const QString& name, const std::array<double, 3>& collar, bool hasZ,
                 const WellPath& path, std::vector<double>& depths) const
    {
        std::vector<double> x;
        std::vector<double> y;
        std::vector<double> z;
        for (const double depth : depths) {
            const auto moved = path.at(depth);
            x.push_back(collar[0] + moved[0] * m_factor);
            y.push_back(collar[1] + moved[1] * m_factor);
            z.push_back(hasZ ? collar[2] + moved[2] : 0.0);
        }
        ModelObject well = newObject(m_table.path(), m_options, ObjectType::Wells, name, QStringLiteral("Wells"));
        well.hasZ = hasZ;
        well.parts.push_back({0, static_cast<int>(x.size()), false, false});
        setCoordinates(well, std::move(x), std::move(y), std::move(z));
        std::vector<AttributeColumn> logs = m_logs.at(name, depths);
        AttributeColumn measuredDepth;
        measuredDepth.name = QStringLiteral("MD");
        measuredDepth.unit = depthUnit();
        measuredDepth.numbers = std::make_shared<const std::vector<double>>(std::move(depths));
        well.vertexAttributes.push_back(std::move(measuredDepth));
        for (AttributeColumn& log : logs) {
            const QString asked = log.name;
            const auto isTaken = [&well](const QString& known) {
                return std::any_of(well.vertexAttributes.begin(), well.vertexAttributes.end(),
                                   [&known](const AttributeColumn& column) { return column.name == known; });
            };
            for (int number = 2; isTaken(log.name); ++number)
                log.name = QStringLiteral("%1_%2").arg(asked).arg(number);
            well.vertexAttributes.push_back(std::move(log));
        }
        model.add(std::move(well));
    }

    QString depthUnit() const
    {
        if (!m_options.lengthUnit.isEmpty())
            return m_options.lengthUnit;
        const QString unit = unitsOf(m_crs).horizontal;
        return unit.isEmpty() ? QStringLiteral("m") : unit;
    }

    TextTable m_table;
    const LoadOptions& m_options;
    WellLogs m_logs;
    LoadNotes m_notes;
    int m_hole;
    int m_x;
    int m_y;
    int m_z;
    QString m_crs;
    double m_factor; ///< from the unit of the depths to that of the coordinate system
    std::optional<WellSurvey> m_survey;
    QStringList m_seen;
    int m_withoutSurvey = 0;
    int m_withoutPosition = 0;
    int m_withoutHeight = 0;
};

} // namespace

LoadNotes readWells(Model& model, const QString& path, const LoadOptions& options)
{
    return CollarTable(path, options).read(model);
}

} // namespace kpFormats
