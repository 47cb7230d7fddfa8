// SPDX-License-Identifier: MIT
#include "formats/kml/KmlVerification.h"

#include "formats/kml/KmlAttributeVerification.h"
#include "formats/kml/KmlDocumentWriter.h"
#include "formats/kml/KmlExpectation.h"
#include "formats/kml/KmlSink.h"
#include "geo/GdalSession.h"

#include <QFileInfo>

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Figure = KmlExpectedFeature::Figure;

/// A name as a reader gives it back: spaces and line ends at its borders do not count.
QString comparable(const QString& name)
{
    QString text = xmlText(name);
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n')).trimmed();
}

QString fieldOf(const OGRFeature& feature, const char* name)
{
    const int field = feature.GetFieldIndex(name);
    return field < 0 ? QString() : QString::fromUtf8(feature.GetFieldAsString(field));
}

void addCurve(const OGRSimpleCurve& curve, KmlExpectedFeature::Kind kind, std::vector<Figure>& figures)
{
    figures.emplace_back();
    figures.back().kind = kind;
    for (int index = 0; index < curve.getNumPoints(); ++index)
        figures.back().places.push_back({curve.getX(index), curve.getY(index), curve.getZ(index)});
}

void collect(const OGRGeometry& geometry, std::vector<Figure>& figures)
{
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint: {
        const OGRPoint& point = *geometry.toPoint();
        figures.push_back({KmlExpectedFeature::Point, {{point.getX(), point.getY(), point.getZ()}}});
        break;
    }
    case wkbLineString:
        addCurve(*geometry.toLineString(), KmlExpectedFeature::Line, figures);
        break;
    case wkbPolygon: {
        KmlExpectedFeature::Kind kind = KmlExpectedFeature::Outer;
        for (const OGRLinearRing* ring : *geometry.toPolygon()) {
            addCurve(*ring, kind, figures);
            kind = KmlExpectedFeature::Hole;
        }
        break;
    }
    default:
        if (OGR_GT_IsSubClassOf(geometry.getGeometryType(), wkbGeometryCollection)) {
            for (const OGRGeometry* part : *geometry.toGeometryCollection())
                collect(*part, figures);
        }
    }
}

class DocumentCheck
{
public:
    DocumentCheck(GDALDataset& dataset, QString pictures, const ExportSelection& selection,
                  const KmlExportSettings& settings, const std::function<QString(int)>& pictureName,
                  Verification& result)
        : m_dataset(dataset)
        , m_pictures(std::move(pictures))
        , m_selection(selection)
        , m_settings(settings)
        , m_pictureName(pictureName)
        , m_expectation(settings)
        , m_result(result)
    {
    }

    void compare(const std::vector<const ModelObject*>& objects)
    {
        if (m_settings.boundingArea) {
            const KmlExpectedFeature bounds = m_expectation.boundsOf(objects);
            if (!bounds.figures.empty() && beginFolder(QStringLiteral("Bounding Area"))) {
                compareFeature(bounds);
                endFolder();
            }
        }
        for (const ObjectType type : allObjectTypes()) {
            const auto isOf = [type](const ModelObject* object) { return object->type == type; };
            if (std::none_of(objects.begin(), objects.end(), isOf) || !beginFolder(typeName(type)))
                continue;
            for (const ModelObject* object : objects) {
                if (isOf(object) && m_result.good())
                    m_expectation.eachOf(*object, [this](const KmlExpectedFeature& one) { compareFeature(one); });
            }
            endFolder();
        }
        m_result.compareCount(QStringLiteral("file"), QStringLiteral("folders"), m_folders, m_dataset.GetLayerCount());
    }

private:
    bool beginFolder(const QString& name)
    {
        if (!m_result.good())
            return false;
        m_layer = m_dataset.GetLayer(m_folders++);
        if (!m_layer || QString::fromUtf8(m_layer->GetName()) != name) {
            m_result.fail(QStringLiteral("there is no folder %1").arg(name));
            return false;
        }
        m_layer->ResetReading();
        return true;
    }

    void endFolder()
    {
        if (m_result.good() && OGRFeatureUniquePtr(m_layer->GetNextFeature()))
            m_result.fail(QStringLiteral("the folder %1 has more features than the model")
                              .arg(QString::fromUtf8(m_layer->GetName())));
    }

    void compareFeature(const KmlExpectedFeature& expected)
    {
        if (!m_result.good())
            return;
        const OGRFeatureUniquePtr read(m_layer->GetNextFeature());
        if (!read || !read->GetGeometryRef())
            return m_result.fail(QStringLiteral("%1: it is missing").arg(expected.name));
        m_result.compareText(comparable(expected.name), comparable(fieldOf(*read, "Name")),
                             [&] { return QStringLiteral("name of %1").arg(expected.name); });
        std::vector<Figure> figures;
        collect(*read->GetGeometryRef(), figures);
        if (expected.isOverlay)
            return compareOverlay(expected, figures);
        compareFigures(expected, figures);
        compareColour(expected, *read);
        if (m_settings.attributes && expected.object)
            compareKmlAttributes(expected, fieldOf(*read, "description"), m_selection, m_result);
    }

    void compareFigures(const KmlExpectedFeature& expected, const std::vector<Figure>& read)
    {
        if (!m_result.compareCount(expected.name, QStringLiteral("parts"), static_cast<qint64>(expected.figures.size()),
                                   static_cast<qint64>(read.size())))
            return;
        for (std::size_t part = 0; part < read.size(); ++part) {
            const Figure& wanted = expected.figures[part];
            const auto name = [&] { return QStringLiteral("%1, part %2").arg(expected.name).arg(part + 1); };
            if (wanted.kind != read[part].kind)
                m_result.fail(QStringLiteral("%1: it is of another kind").arg(name()));
            if (!m_result.compareCount(name(), QStringLiteral("positions"), static_cast<qint64>(wanted.places.size()),
                                       static_cast<qint64>(read[part].places.size())))
                return;
            for (std::size_t place = 0; place < wanted.places.size(); ++place) {
                const auto where = [&] { return QStringLiteral("%1, position %2").arg(name()).arg(place + 1); };
                Verification::Place place3 = wanted.places[place];
                place3[2] = std::isnan(place3[2]) ? 0.0 : place3[2];
                if (expected.hasHeights)
                    m_result.comparePosition(place3, read[part].places[place], where);
                else
                    m_result.compareFlatPosition(place3, read[part].places[place], where);
            }
        }
    }

    /// Styles stand at the document and are named at the features.
    void compareColour(const KmlExpectedFeature& expected, OGRFeature& read)
    {
        const char* const own = read.GetStyleString();
        QString style = QString::fromUtf8(own ? own : "");
        if (style.startsWith(QLatin1Char('@')) && m_dataset.GetStyleTable()) {
            const char* const shared = m_dataset.GetStyleTable()->Find(own + 1);
            style = QString::fromUtf8(shared ? shared : "");
        }
        if (!expected.colour.isValid() || !expected.object)
            return;
        m_result.alsoCompared(QStringLiteral("colours"));
        if (!style.contains(expected.colour.name(), Qt::CaseInsensitive))
            m_result.fail(QStringLiteral("%1: its colour is not %2 but that of \"%3\"")
                              .arg(expected.name, expected.colour.name(), style));
    }

    void compareOverlay(const KmlExpectedFeature& expected, const std::vector<Figure>& read)
    {
        std::vector<Verification::Place> corners[2];
        for (const Figure& figure : read)
            corners[1].insert(corners[1].end(), figure.places.begin(), figure.places.end());
        corners[0] = expected.figures.front().places;
        Verification::Place least[2];
        Verification::Place most[2];
        for (int side = 0; side < 2 && !corners[1].empty(); ++side) {
            least[side] = most[side] = corners[side].front();
            for (const Verification::Place& corner : corners[side]) {
                for (std::size_t axis = 0; axis < 2; ++axis) {
                    least[side][axis] = std::min(least[side][axis], corner[axis]);
                    most[side][axis] = std::max(most[side][axis], corner[axis]);
                }
            }
        }
        if (corners[1].empty())
            return m_result.fail(QStringLiteral("%1: its picture has no place").arg(expected.name));
        const auto where = [&] { return QStringLiteral("box of the picture of %1").arg(expected.name); };
        m_result.compareFlatPosition(least[0], least[1], where);
        m_result.compareFlatPosition(most[0], most[1], where);
        comparePicture(*expected.object->grid, m_pictureName(++m_pictureCount));
    }

    void comparePicture(const GridGeometry& grid, const QString& name)
    {
        constexpr int mostPixels = 2048;
        const QString path = m_pictures + QLatin1Char('/') + name;
        const GDALDatasetUniquePtr picture(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_RASTER));
        if (!picture)
            return m_result.fail(QStringLiteral("the picture %1 cannot be read").arg(name));
        m_result.alsoCompared(QStringLiteral("sizes of pictures"));
        m_result.compareCount(name, QStringLiteral("columns of pixels"), std::min(grid.columns, mostPixels),
                              picture->GetRasterXSize());
        m_result.compareCount(name, QStringLiteral("rows of pixels"), std::min(grid.rows, mostPixels),
                              picture->GetRasterYSize());
    }

    GDALDataset& m_dataset;
    QString m_pictures;
    const ExportSelection& m_selection;
    const KmlExportSettings& m_settings;
    const std::function<QString(int)>& m_pictureName;
    KmlExpectation m_expectation;
    Verification& m_result;
    OGRLayer* m_layer = nullptr;
    int m_folders = 0;
    int m_pictureCount = 0;
};

} // namespace

Verification verifyKml(const std::vector<const ModelObject*>& objects, const QString& path, bool archived,
                       const ExportSelection& selection, const KmlExportSettings& settings,
                       const std::function<QString(int)>& pictureName)
{
    Verification result(QStringLiteral("GDAL driver LIBKML"),
                        Allowance::ofDecimals(kmlDegreeDecimals, QStringLiteral("degrees")),
                        Allowance::ofDecimals(kmlHeightDecimals, QStringLiteral("m")));
    const QuietGdal quiet;
    registerGdalDrivers();
    const QString archive = QStringLiteral("/vsizip/{%1}").arg(path);
    const QString document = archived ? archive + QStringLiteral("/doc.kml") : path;
    const char* const drivers[] = {"LIBKML", nullptr};
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(document.toUtf8().constData(), GDAL_OF_VECTOR, drivers));
    if (!dataset) {
        result.fail(QStringLiteral("the file could not be read: %1").arg(QuietGdal::lastMessage()));
        return result;
    }
    DocumentCheck(*dataset, archived ? archive : QFileInfo(path).absolutePath(), selection, settings, pictureName,
                  result)
        .compare(objects);
    return result;
}

} // namespace kpFormats
