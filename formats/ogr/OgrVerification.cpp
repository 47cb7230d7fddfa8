// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrVerification.h"

#include "formats/ogr/GeoJsonDecimals.h"
#include "formats/ogr/OgrAttributeVerification.h"
#include "formats/ogr/OgrFormat.h"
#include "formats/ogr/OgrGeometryVerification.h"
#include "formats/ogr/OgrSystemVerification.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

bool isGeoJson(const OgrFileExpectation& file)
{
    return file.traits.driver == QLatin1String("GeoJSON");
}

bool isMapInfo(const OgrFileExpectation& file)
{
    return file.traits.driver == QLatin1String("MapInfo File");
}

struct Extent
{
    std::array<double, 3> least;
    std::array<double, 3> most;
};

/// Of everything that has a place.
Extent extentOf(OgrFileExpectation& file)
{
    Extent extent;
    extent.least.fill(std::numeric_limits<double>::max());
    extent.most.fill(std::numeric_limits<double>::lowest());
    for (const OgrLayer& layer : file.layers) {
        for (const ModelObject* object : layer.objects) {
            const OgrExpectedPlaces places(*object, file.systems);
            for (std::size_t vertex = 0; vertex < object->x->size(); ++vertex) {
                for (std::size_t axis = 0; places.has(vertex) && axis < 3; ++axis) {
                    // An unknown height is neither.
                    extent.least[axis] = std::fmin(extent.least[axis], places.at(vertex)[axis]);
                    extent.most[axis] = std::fmax(extent.most[axis], places.at(vertex)[axis]);
                }
            }
        }
    }
    return extent;
}

/// Half a step of the whole numbers that a MapInfo table has for positions, over the extent of all of them, and half of
/// the last decimal to which the driver rounds what it reads: that nearest to a step.
double mapInfoAllowance(OgrFileExpectation& file)
{
    constexpr double steps = 2e9;
    const Extent extent = extentOf(file);
    double allowed = 0;
    for (const std::size_t axis : {0, 1}) {
        const double width = extent.most[axis] - extent.least[axis];
        const double step = std::max(1.02 * width, width + 2.0) / steps;
        allowed = std::max(allowed, 0.5 * step + 0.5 * std::pow(10.0, -std::round(std::log10(1.0 / step))));
    }
    return allowed;
}

/// Half of the last digit of the largest number of the coordinates, of an axis from \a first to \a last.
double digitsAllowance(OgrFileExpectation& file, std::size_t first, std::size_t last)
{
    const Extent extent = extentOf(file);
    double largest = 0;
    for (std::size_t axis = first; axis <= last; ++axis) {
        if (extent.least[axis] <= extent.most[axis])
            largest = std::max({largest, std::abs(extent.least[axis]), std::abs(extent.most[axis])});
    }
    return 5.0 * std::pow(10.0, -file.traits.positionDigits) * largest;
}

Verification emptyVerification(OgrFileExpectation& file)
{
    const ModelObject& first = *file.layers.front().objects.front();
    const QString named = crsUnit(file.systems.target());
    const QString unit = named.isEmpty() ? first.lengthUnit : named;
    const QString reader = file.traits.driver == QLatin1String("PGDUMP")
                               ? QStringLiteral("a reader of COPY lines")
                               : QStringLiteral("GDAL driver %1").arg(file.traits.driver);
    const Allowance heights(0.0, file.systems.isOnGlobe() ? QStringLiteral("m") : first.lengthUnit);
    if (isMapInfo(file))
        return Verification(reader, {mapInfoAllowance(file), unit}, heights);
    if (file.traits.positionDigits > 0)
        return Verification(reader, {digitsAllowance(file, 0, 1), unit}, {digitsAllowance(file, 2, 2), heights.unit});
    if (!isGeoJson(file))
        return Verification(reader, {0.0, unit}, heights);
    const int usual = unit == QLatin1String("degrees") ? geoJsonDegreeDecimals : geoJsonLengthDecimals;
    const int decimals = file.settings.decimals >= 0 ? file.settings.decimals : usual;
    // Under RFC 7946 the driver keeps millimetres of heights, whatever is asked of it.
    constexpr int globeHeightDecimals = 3;
    return Verification(reader, Allowance::ofDecimals(decimals, unit),
                        Allowance::ofDecimals(file.settings.rfc7946 ? globeHeightDecimals : decimals, heights.unit));
}

class LayerCheck
{
public:
    LayerCheck(OGRLayer& layer, OgrFileExpectation& file, std::size_t index, Verification& result)
        : m_layer(layer)
        , m_file(file)
        , m_expected(file.layers[index])
        , m_result(result)
        , m_attributes(m_expected, file.tables[index], file.traits, result)
        , m_geometry({!file.traits.sizedTexts, isGeoJson(file) && file.settings.rfc7946}, result)
        , m_hasZ(m_expected.hasZ && file.traits.heights)
        , m_styled(isMapInfo(file) && file.settings.symbology && file.settings.attributes && file.settings.color)
    {
    }

    void compare()
    {
        m_attributes.compareFields(*m_layer.GetLayerDefn());
        m_layer.ResetReading();
        for (const ModelObject* object : m_expected.objects) {
            const OgrExpectedPlaces places(*object, m_file.systems);
            m_attributes.start(places);
            forEachExpectedFeature(m_expected, places, [this, &places](const OgrExpectedFeature& feature) {
                compareFeature(feature, places);
                return m_result.good();
            });
            compareSystemAt(places);
        }
        if (m_result.good() && OGRFeatureUniquePtr(m_layer.GetNextFeature()))
            m_result.fail(QStringLiteral("layer %1: it has more features than the model")
                              .arg(QString::fromUtf8(m_layer.GetName())));
        if (m_result.good())
            m_attributes.compareTypes(*m_layer.GetLayerDefn());
    }

private:
    void compareFeature(const OgrExpectedFeature& feature, const OgrExpectedPlaces& places)
    {
        const OGRFeatureUniquePtr read(m_layer.GetNextFeature());
        if (!read) {
            m_result.fail(QStringLiteral("%1: feature %2 is missing").arg(places.object().name).arg(feature.number));
            return;
        }
        m_geometry.compare(read->GetGeometryRef(), feature, places, m_hasZ);
        m_attributes.compare(*read, feature);
        if (!m_styled || !places.object().color.isValid())
            return;
        m_result.alsoCompared(QStringLiteral("colours"));
        const QString style = QString::fromUtf8(read->GetStyleString());
        if (!style.contains(places.object().color.name(), Qt::CaseInsensitive))
            m_result.fail(QStringLiteral("%1, feature %2: its colour is not %3 but that of %4")
                              .arg(places.object().name)
                              .arg(feature.number)
                              .arg(places.object().color.name(), style));
    }

    /// Once, where the first object is that has a place.
    void compareSystemAt(const OgrExpectedPlaces& places)
    {
        for (std::size_t vertex = 0; !m_systemCompared && vertex < places.object().x->size(); ++vertex) {
            if (!places.has(vertex))
                continue;
            m_systemCompared = true;
            compareOgrSystem(m_layer.GetSpatialRef(), m_file.systems.target(), m_file.written, m_file.traits,
                             places.at(vertex), m_result);
        }
    }

    OGRLayer& m_layer;
    OgrFileExpectation& m_file;
    const OgrLayer& m_expected;
    Verification& m_result;
    OgrAttributeVerification m_attributes;
    OgrGeometryVerification m_geometry;
    bool m_hasZ;
    bool m_styled;
    bool m_systemCompared = false;
};

/// Those that hold objects.
std::vector<OGRLayer*> objectLayers(GDALDataset& dataset)
{
    std::vector<OGRLayer*> layers;
    for (OGRLayer* layer : dataset.GetLayers()) {
        if (QLatin1String(layer->GetName()) != QLatin1String("layer_styles"))
            layers.push_back(layer);
    }
    return layers;
}

} // namespace

Verification verifyOgrFile(const QString& path, const OgrFormat& format, OgrFileExpectation expected)
{
    const QuietGdal quiet;
    Verification result = emptyVerification(expected);
    const GDALDatasetUniquePtr dataset = format.open(path);
    if (!dataset) {
        result.fail(QStringLiteral("it cannot be opened: %1").arg(QuietGdal::lastMessage()));
        return result;
    }
    const std::vector<OGRLayer*> layers = objectLayers(*dataset);
    if (!result.compareCount(QStringLiteral("file"), QStringLiteral("layers"),
                             static_cast<qint64>(expected.layers.size()), static_cast<qint64>(layers.size())))
        return result;
    for (std::size_t index = 0; index < layers.size() && result.good(); ++index)
        LayerCheck(*layers[index], expected, index, result).compare();
    return result;
}

} // namespace kpFormats
