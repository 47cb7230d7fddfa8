// SPDX-License-Identifier: MIT
#include "readers/WellReader.h"

#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "readers/LoadError.h"
#include "readers/OpenDataset.h"
#include "readers/VectorReader.h"

#include <QHash>

#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

struct Station
{
    double depth;
    double azimuth; ///< radians, clockwise from north
    double dip;     ///< radians, positive down
};

GDALDatasetUniquePtr openTable(const QString& path)
{
    CPLStringList options;
    options.AddString("AUTODETECT_TYPE=YES");
    options.AddString("AUTODETECT_SIZE_LIMIT=0");
    options.AddString("EMPTY_STRING_AS_NULL=YES");
    return openDataset(path, GDAL_OF_VECTOR, options.List());
}

/// The first column with one of the names, in any case.
int columnNamed(OGRLayer& layer, const QString& path, const char* what, const QStringList& names)
{
    OGRFeatureDefn* definition = layer.GetLayerDefn();
    QStringList present;
    for (int field = 0; field < definition->GetFieldCount(); ++field) {
        const QString name = QString::fromUtf8(definition->GetFieldDefn(field)->GetNameRef());
        if (names.contains(name, Qt::CaseInsensitive))
            return field;
        present.append(name);
    }
    throw LoadError(path,
                    QStringLiteral("there is no column with the %1; the columns are %2")
                        .arg(QString::fromLatin1(what), present.join(QStringLiteral(", "))),
                    QStringLiteral("name it %1").arg(names.first()));
}

const QStringList& holeNames()
{
    static const QStringList names{QStringLiteral("BHID"), QStringLiteral("HOLEID"), QStringLiteral("HOLE_ID"),
                                   QStringLiteral("WELL"), QStringLiteral("NAME")};
    return names;
}

QHash<QString, std::vector<Station>> readStations(const QString& path, double maxDepth)
{
    const GDALDatasetUniquePtr dataset = openTable(path);
    OGRLayer& layer = *dataset->GetLayer(0);
    const int hole = columnNamed(layer, path, "hole", holeNames());
    const int depth =
        columnNamed(layer, path, "depth", {QStringLiteral("AT"), QStringLiteral("DEPTH"), QStringLiteral("MD")});
    const int azimuth = columnNamed(layer, path, "azimuth", {QStringLiteral("AZ"), QStringLiteral("AZIMUTH")});
    const int dip = columnNamed(layer, path, "dip", {QStringLiteral("DIP")});
    constexpr double radians = M_PI / 180.0;
    QHash<QString, std::vector<Station>> stations;
    for (const auto& row : layer) {
        const Station station{row->GetFieldAsDouble(depth), row->GetFieldAsDouble(azimuth) * radians,
                              row->GetFieldAsDouble(dip) * radians};
        if (std::isfinite(station.depth) && station.depth <= maxDepth)
            stations[QString::fromUtf8(row->GetFieldAsString(hole))].push_back(station);
    }
    for (auto& list : stations) {
        std::stable_sort(list.begin(), list.end(),
                         [](const Station& a, const Station& b) { return a.depth < b.depth; });
    }
    return stations;
}

/// The step from one station to the next, on an arc of a circle.
std::array<double, 3> step(const Station& from, const Station& to)
{
    const auto direction = [](const Station& station) {
        return std::array<double, 3>{std::cos(station.dip) * std::sin(station.azimuth),
                                     std::cos(station.dip) * std::cos(station.azimuth), -std::sin(station.dip)};
    };
    const auto a = direction(from);
    const auto b = direction(to);
    const double cosine = std::clamp(a[0] * b[0] + a[1] * b[1] + a[2] * b[2], -1.0, 1.0);
    const double bend = std::acos(cosine);
    const double ratio = bend < 1e-9 ? 1.0 : 2.0 / bend * std::tan(bend / 2.0);
    const double half = (to.depth - from.depth) / 2.0 * ratio;
    return {half * (a[0] + b[0]), half * (a[1] + b[1]), half * (a[2] + b[2])};
}

} // namespace

LoadNotes readWells(Model& model, const QString& path, const LoadOptions& options)
{
    const QuietGdal quiet;
    const QHash<QString, std::vector<Station>> surveys = readStations(options.survey, options.maxDepth);
    const GDALDatasetUniquePtr dataset = openTable(path);
    OGRLayer& layer = *dataset->GetLayer(0);
    const int hole = columnNamed(layer, path, "hole", holeNames());
    const auto names = [](const QString& chosen, const QStringList& guesses) {
        return chosen.isEmpty() ? guesses : QStringList{chosen};
    };
    const int east =
        columnNamed(layer, path, "x coordinate",
                    names(options.x, {QStringLiteral("XCOLLAR"), QStringLiteral("X"), QStringLiteral("EAST")}));
    const int north =
        columnNamed(layer, path, "y coordinate",
                    names(options.y, {QStringLiteral("YCOLLAR"), QStringLiteral("Y"), QStringLiteral("NORTH")}));
    const int up =
        columnNamed(layer, path, "elevation",
                    names(options.z, {QStringLiteral("ZCOLLAR"), QStringLiteral("Z"), QStringLiteral("ELEV")}));
    const QString crs = wktOf(options.crs);
    int withoutSurvey = 0;
    int wells = 0;
    for (const auto& row : layer) {
        const QString name = QString::fromUtf8(row->GetFieldAsString(hole));
        std::vector<Station> stations = surveys.value(name);
        if (stations.empty()) {
            ++withoutSurvey;
            stations.push_back({0.0, 0.0, M_PI / 2.0});
        } else if (stations.front().depth > 0.0) {
            Station collar = stations.front();
            collar.depth = 0.0;
            stations.insert(stations.begin(), collar);
        }
        std::vector<double> x{row->GetFieldAsDouble(east)};
        std::vector<double> y{row->GetFieldAsDouble(north)};
        std::vector<double> z{row->GetFieldAsDouble(up)};
        std::vector<double> depths{stations.front().depth};
        for (std::size_t index = 1; index < stations.size(); ++index) {
            const auto moved = step(stations[index - 1], stations[index]);
            x.push_back(x.back() + moved[0]);
            y.push_back(y.back() + moved[1]);
            z.push_back(z.back() + moved[2]);
            depths.push_back(stations[index].depth);
        }
        ModelObject well;
        well.type = options.type.value_or(ObjectType::Wells);
        well.name = name;
        well.set = options.set.isEmpty() ? QStringLiteral("Wells") : options.set;
        well.color =
            options.color.isEmpty() ? paletteColor(static_cast<int>(model.objects().size())) : QColor(options.color);
        well.crs = crs;
        well.lengthUnit = options.lengthUnit;
        well.source = path;
        well.parts.push_back({0, static_cast<int>(x.size()), false, false});
        well.x = std::make_shared<const std::vector<double>>(std::move(x));
        well.y = std::make_shared<const std::vector<double>>(std::move(y));
        well.z = std::make_shared<const std::vector<double>>(std::move(z));
        AttributeColumn measuredDepth;
        measuredDepth.name = QStringLiteral("MD");
        measuredDepth.unit = options.lengthUnit;
        measuredDepth.numbers = std::make_shared<const std::vector<double>>(std::move(depths));
        well.vertexAttributes.push_back(std::move(measuredDepth));
        model.add(std::move(well));
        ++wells;
    }
    if (wells == 0)
        throw LoadError(path, QStringLiteral("the table has no collar"), QStringLiteral("give a row per hole"));
    LoadNotes notes;
    if (withoutSurvey > 0)
        notes.append(
            QStringLiteral("%1: %2 holes have no survey and consist of their collar").arg(path).arg(withoutSurvey));
    return notes;
}

} // namespace kpFormats
