// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfVerification.h"

#include "formats/dxf/DxfExpectation.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"

#include <QRegularExpression>

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

// Heights are lengths also where x and y are degrees.
constexpr int mostHeightDecimals = 7;

/// The text with the characters for which it has codes.
QString decoded(const QString& text)
{
    static const QRegularExpression code(QStringLiteral("\\\\U\\+([0-9A-Fa-f]{4})"));
    QString result;
    int position = 0;
    QRegularExpressionMatchIterator codes = code.globalMatch(text);
    while (codes.hasNext()) {
        const QRegularExpressionMatch match = codes.next();
        result += text.midRef(position, match.capturedStart() - position);
        result += QChar(match.captured(1).toUShort(nullptr, 16));
        position = match.capturedEnd();
    }
    return result + text.midRef(position);
}

/// Whether a reader takes something in the text for a command.
bool hasCommands(const QString& text)
{
    return text.contains(QLatin1Char('\\')) || text.contains(QLatin1Char('^')) || text.contains(QLatin1String("%%"));
}

void collect(const OGRGeometry& geometry, std::vector<Verification::Place>& places)
{
    const auto add = [&places](const OGRSimpleCurve& curve) {
        for (int index = 0; index < curve.getNumPoints(); ++index)
            places.push_back({curve.getX(index), curve.getY(index), curve.getZ(index)});
    };
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint:
        places.push_back({geometry.toPoint()->getX(), geometry.toPoint()->getY(), geometry.toPoint()->getZ()});
        break;
    case wkbLineString:
        add(*geometry.toLineString());
        break;
    case wkbPolygon:
        for (const OGRLinearRing* ring : *geometry.toPolygon())
            add(*ring);
        break;
    default:
        break;
    }
}

OGRwkbGeometryType geometryOf(DxfExpectedEntity::Kind kind)
{
    switch (kind) {
    case DxfExpectedEntity::Line:
        return wkbLineString;
    case DxfExpectedEntity::Face:
        return wkbPolygon;
    default:
        return wkbPoint;
    }
}

class DrawingCheck
{
public:
    DrawingCheck(OGRLayer& layer, bool flat, Verification& result)
        : m_layer(layer)
        , m_flat(flat)
        , m_result(result)
    {
        m_layer.ResetReading();
    }

    void compare(const DxfExpectedObject& object, const DxfExpectedEntity& entity)
    {
        if (!m_result.good())
            return;
        const OGRFeatureUniquePtr read(m_layer.GetNextFeature());
        ++m_number;
        m_name = object.object->name;
        if (!read || !read->GetGeometryRef())
            return m_result.fail(QStringLiteral("%1: it is missing").arg(where()));
        const OGRGeometry& geometry = *read->GetGeometryRef();
        if (wkbFlatten(geometry.getGeometryType()) != geometryOf(entity.kind))
            return m_result.fail(
                QStringLiteral("%1: it is a %2").arg(where(), QLatin1String(geometry.getGeometryName())));
        comparePlaces(object, entity, geometry);
        const QString layer = decoded(QString::fromUtf8(read->GetFieldAsString("Layer")));
        m_result.compareSame(QStringLiteral("layers"), where(), decoded(object.layer), layer);
        compareColour(object.colour, QString::fromUtf8(read->GetStyleString()));
        if (entity.kind == DxfExpectedEntity::Text)
            compareText(object.object->name, decoded(QString::fromUtf8(read->GetFieldAsString("Text"))));
    }

    void finish()
    {
        if (m_result.good() && OGRFeatureUniquePtr(m_layer.GetNextFeature()))
            m_result.fail(QStringLiteral("the drawing has more entities than the model"));
    }

private:
    QString where() const { return QStringLiteral("%1, entity %2").arg(m_name).arg(m_number); }

    void comparePlaces(const DxfExpectedObject& object, const DxfExpectedEntity& entity, const OGRGeometry& geometry)
    {
        std::vector<Verification::Place> read;
        collect(geometry, read);
        if (!m_result.compareCount(where(), QStringLiteral("positions"), static_cast<qint64>(entity.places.size()),
                                   static_cast<qint64>(read.size())))
            return;
        for (std::size_t place = 0; place < read.size(); ++place) {
            for (std::size_t axis = 0; axis < (m_flat ? 2u : 3u); ++axis) {
                const int decimals = axis < 2 ? object.decimals : std::min(object.decimals, mostHeightDecimals);
                m_result.compareCoordinate(entity.places[place][axis], read[place][axis],
                                           0.5 * std::pow(10.0, -decimals), [&] {
                                               return QStringLiteral("%1, position %2, %3")
                                                   .arg(where())
                                                   .arg(place + 1)
                                                   .arg(QLatin1Char("xyz"[axis]));
                                           });
            }
            m_result.countPosition();
        }
    }

    void compareColour(int index, const QString& style)
    {
        static const QRegularExpression pattern(QStringLiteral("c:(#[0-9A-Fa-f]{6})"));
        m_result.alsoCompared(QStringLiteral("colours"));
        const QColor read(pattern.match(style).captured(1));
        const QColor wanted = indexedColour(index);
        // The palettes of programs differ by a few shades; that of index 7 is black or white, whatever is behind it.
        constexpr int alike = 3;
        const bool same = read.isValid() && std::abs(read.red() - wanted.red()) <= alike
                          && std::abs(read.green() - wanted.green()) <= alike
                          && std::abs(read.blue() - wanted.blue()) <= alike;
        const bool blackOrWhite = index == 7 && (read == QColor(Qt::black) || read == QColor(Qt::white));
        if (!same && !blackOrWhite)
            m_result.fail(
                QStringLiteral("%1: its colour is not %2 but that of \"%3\"").arg(where(), wanted.name(), style));
    }

    void compareText(const QString& name, const QString& read)
    {
        bool changed = false;
        const QString wanted = decoded(QString::fromStdString(dxfText(name, changed)));
        if (!hasCommands(wanted))
            m_result.compareText(wanted.trimmed(), read.trimmed(), [this] { return where(); });
    }

    OGRLayer& m_layer;
    bool m_flat;
    Verification& m_result;
    QString m_name;
    qint64 m_number = 0;
};

Allowance allowanceOf(const ModelObject& first, const DxfExportSettings& settings)
{
    const QString unit = crsUnit(settings.crs.isEmpty() ? first.crs : wktOf(settings.crs));
    if (unit == QLatin1String("degrees"))
        return Allowance::ofDecimals(9, unit);
    const bool kilometres = settings.lengthUnit == OutputUnit::Kilometre;
    return Allowance::ofDecimals(kilometres ? 7 : 4, writtenUnit(first.lengthUnit, settings.lengthUnit));
}

} // namespace

Verification verifyDxf(const std::vector<const ModelObject*>& objects, const QString& path,
                       const DxfExportSettings& settings)
{
    Verification result(QStringLiteral("GDAL driver DXF"), allowanceOf(*objects.front(), settings));
    const QuietGdal quiet;
    registerGdalDrivers();
    const char* const drivers[] = {"DXF", nullptr};
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR, drivers));
    if (!dataset || dataset->GetLayerCount() < 1) {
        result.fail(QStringLiteral("the file could not be read: %1").arg(QuietGdal::lastMessage()));
        return result;
    }
    DxfExpectation expectation(objects, settings);
    DrawingCheck check(*dataset->GetLayer(0), expectation.isFlat(), result);
    expectation.each(
        [&check](const DxfExpectedObject& object, const DxfExpectedEntity& entity) { check.compare(object, entity); });
    check.finish();
    return result;
}

} // namespace kpFormats
