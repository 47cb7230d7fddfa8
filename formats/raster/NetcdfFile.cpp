// SPDX-License-Identifier: MIT
#include "formats/raster/NetcdfFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/SafeNames.h"
#include "export/WriteErrors.h"
#include "formats/raster/NetcdfHeader.h"
#include "formats/raster/NetcdfVerification.h"
#include "geo/CoordinateSystems.h"
#include "model/ProgressTicker.h"

#include <QFileInfo>

#include <ogr_spatialref.h>

namespace kpFormats
{

namespace
{

using Attribute = NetcdfHeader::Attribute;

enum Axis { Y, X };

/// Names of variables that every program takes: ASCII letters, digits and "_", a letter first.
QStringList variableNames(const std::vector<RasterGrid::Band>& bands, const ModelObject& object, Findings& findings)
{
    UniqueNames names;
    for (const char* own : {"x", "y", "crs"})
        names.take(QLatin1String(own));
    QStringList taken;
    for (const RasterGrid::Band& band : bands) {
        QString name;
        for (const QChar character : band.name.normalized(QString::NormalizationForm_KD)) {
            const bool plain = character.unicode() < 0x80 && character.isLetterOrNumber();
            if (!character.isMark())
                name += plain ? character : QChar(QLatin1Char('_'));
        }
        if (name.isEmpty() || !name[0].isLetter())
            name.prepend(QStringLiteral("v_"));
        taken.append(names.take(name));
        findings.note(
            finding::renamed, object, taken.last() == band.name ? 0 : 1,
            QStringLiteral("attribute %1 is the variable %2; its long_name is as it was").arg(band.name, taken.last()));
    }
    return taken;
}

/// A unit in the words of UDUNITS.
QString unitName(const QString& unit)
{
    return unit == QLatin1String("ftUS") ? QStringLiteral("US_survey_foot") : unit;
}

void addSphere(std::vector<Attribute>& attributes, const OGRSpatialReference& system)
{
    attributes.push_back(NetcdfHeader::numbersOf("longitude_of_prime_meridian", {system.GetPrimeMeridian()}));
    attributes.push_back(NetcdfHeader::numbersOf("semi_major_axis", {system.GetSemiMajor()}));
    attributes.push_back(NetcdfHeader::numbersOf("inverse_flattening", {system.GetInvFlattening()}));
}

/// A coordinate system in the words of CF where it has them here, and as WKT.
std::vector<Attribute> mappingOf(const QString& wkt)
{
    OGRSpatialReference system;
    system.SetFromUserInput(wkt.toUtf8().constData());
    std::vector<Attribute> attributes;
    const char* const projection = system.GetAttrValue("PROJECTION");
    if (system.IsGeographic()) {
        attributes.push_back(NetcdfHeader::textOf("grid_mapping_name", QStringLiteral("latitude_longitude")));
        addSphere(attributes, system);
    } else if (projection && EQUAL(projection, SRS_PT_TRANSVERSE_MERCATOR)) {
        const auto number = [&system](const char* name, const char* parameter) {
            return NetcdfHeader::numbersOf(name, {system.GetNormProjParm(parameter, 0.0)});
        };
        attributes.push_back(NetcdfHeader::textOf("grid_mapping_name", QStringLiteral("transverse_mercator")));
        attributes.push_back(number("scale_factor_at_central_meridian", SRS_PP_SCALE_FACTOR));
        attributes.push_back(number("longitude_of_central_meridian", SRS_PP_CENTRAL_MERIDIAN));
        attributes.push_back(number("latitude_of_projection_origin", SRS_PP_LATITUDE_OF_ORIGIN));
        attributes.push_back(number("false_easting", SRS_PP_FALSE_EASTING));
        attributes.push_back(number("false_northing", SRS_PP_FALSE_NORTHING));
        addSphere(attributes, system);
    }
    attributes.push_back(NetcdfHeader::textOf("crs_wkt", wkt));
    // The name under which readers from before CF 1.7 look for it.
    attributes.push_back(NetcdfHeader::textOf("spatial_ref", wkt));
    return attributes;
}

NetcdfHeader::Variable axisOf(Axis axis, const ModelObject& object)
{
    NetcdfHeader::Variable variable;
    variable.name = axis == X ? "x" : "y";
    variable.dimensions = {axis};
    OGRSpatialReference system;
    const bool known = !object.crs.isEmpty() && system.SetFromUserInput(object.crs.toUtf8().constData()) == OGRERR_NONE;
    QString unit = unitName(object.lengthUnit);
    const char* standard = nullptr;
    if (known && system.IsGeographic()) {
        standard = axis == X ? "longitude" : "latitude";
        unit = axis == X ? QStringLiteral("degrees_east") : QStringLiteral("degrees_north");
    } else if (known && system.IsProjected()) {
        standard = axis == X ? "projection_x_coordinate" : "projection_y_coordinate";
        const SystemUnits units = unitsOf(object.crs);
        unit = units.horizontal.isEmpty() ? crsUnit(object.crs) : unitName(units.horizontal);
    }
    if (standard)
        variable.attributes.push_back(NetcdfHeader::textOf("standard_name", QString::fromLatin1(standard)));
    variable.attributes.push_back(NetcdfHeader::textOf("units", unit));
    variable.attributes.push_back(NetcdfHeader::textOf("axis", axis == X ? QStringLiteral("X") : QStringLiteral("Y")));
    return variable;
}

NetcdfHeader headerOf(const RasterGrid& grid, const RasterNumbers& numbers, const RasterExportSettings& settings,
                      const QStringList& names)
{
    const ModelObject& object = grid.object();
    NetcdfHeader header;
    header.dimensions = {{"y", grid.rows()}, {"x", grid.columns()}};
    header.attributes = {NetcdfHeader::textOf("Conventions", QStringLiteral("CF-1.8")),
                         NetcdfHeader::textOf("title", object.name)};
    header.variables = {axisOf(Y, object), axisOf(X, object)};
    if (!object.crs.isEmpty())
        header.variables.push_back({"crs", {}, mappingOf(object.crs), NetcdfHeader::Char});
    const NetcdfHeader::Type type = numbers.single ? NetcdfHeader::Float : NetcdfHeader::Double;
    for (std::size_t index = 0; index < grid.bands().size(); ++index) {
        const RasterGrid::Band& band = grid.bands()[index];
        NetcdfHeader::Variable variable{names[static_cast<int>(index)].toStdString(), {Y, X}, {}, type};
        variable.attributes.push_back(NetcdfHeader::textOf("long_name", band.name));
        if (!band.unit.isEmpty())
            variable.attributes.push_back(
                NetcdfHeader::textOf("units", band.attribute ? band.unit : unitName(band.unit)));
        if (!band.attribute)
            variable.attributes.push_back(NetcdfHeader::textOf(
                "positive", settings.zIsElevation ? QStringLiteral("up") : QStringLiteral("down")));
        variable.attributes.push_back(NetcdfHeader::numbersOf("_FillValue", {numbers.null}, type));
        if (!object.crs.isEmpty())
            variable.attributes.push_back(NetcdfHeader::textOf("grid_mapping", QStringLiteral("crs")));
        header.variables.push_back(variable);
    }
    return header;
}

/// Rows from the south. False when the user has cancelled.
bool writeBand(BlockWriter& out, const RasterGrid& grid, const RasterNumbers& numbers, std::size_t band,
               ProgressTicker& progress)
{
    for (int line = grid.rows() - 1; line >= 0; --line) {
        for (int column = 0; column < grid.columns(); ++column) {
            double value = grid.value(band, column, line);
            if (numbers.isMissing(value))
                value = numbers.null;
            if (numbers.single)
                appendBigEndian(out.text(), static_cast<float>(value));
            else
                appendBigEndian(out.text(), value);
            if (!progress.next())
                return false;
        }
        out.check();
    }
    return true;
}

} // namespace

NetcdfFile::NetcdfFile(RasterTraits traits, PlannedFile planned, const ExportSelection& selected,
                       RasterExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_traits(std::move(traits))
    , m_settings(std::move(settings))
    , m_grid(*file().objects.front(), m_traits, m_settings, selected, file().path, findings)
    , m_numbers(m_grid, m_traits, m_settings, findings)
    , m_names(variableNames(m_grid.bands(), m_grid.object(), findings))
{
    // Of the classic format every variable but the last.
    constexpr double mostBytes = 4294967292.0;
    if (static_cast<double>(m_grid.columns()) * m_grid.rows() * (m_numbers.single ? 4 : 8) > mostBytes)
        throw ExportError(
            file().path,
            QStringLiteral("the grid %1 has %2 x %3 nodes, and a variable of this kind of netCDF holds 4 GB")
                .arg(m_grid.object().name)
                .arg(m_grid.columns())
                .arg(m_grid.rows()),
            QStringLiteral("choose precision=single, or export it as GeoTIFF"));
}

QStringList NetcdfFile::sidecars() const
{
    return {QFileInfo(file().path).suffix() + QStringLiteral(".aux.xml")};
}

qint64 NetcdfFile::write(const QString& path, Findings&, kpBase::AbstractProgress* progress)
{
    const double nodes = m_grid.object().vertexCount();
    ProgressTicker loop(progress, nodes * static_cast<double>(m_grid.bands().size()));
    BlockWriter out(path, file().path);
    out.text() += headerOf(m_grid, m_numbers, m_settings, m_names).bytes();
    const std::array<double, 6> transform = m_grid.transform();
    for (int line = m_grid.rows() - 1; line >= 0; --line)
        appendBigEndian(out.text(), transform[3] + (line + 0.5) * transform[5]);
    for (int column = 0; column < m_grid.columns(); ++column)
        appendBigEndian(out.text(), transform[0] + (column + 0.5) * transform[1]);
    if (!m_grid.object().crs.isEmpty())
        out.text().append(4, '\0');
    bool all = true;
    for (std::size_t band = 0; all && band < m_grid.bands().size(); ++band)
        all = writeBand(out, m_grid, m_numbers, band, loop);
    if (all)
        out.close();
    return m_grid.object().vertexCount();
}

std::optional<Verification> NetcdfFile::verify(const QString& path) const
{
    return verifyNetcdf(path, m_grid.object(), m_settings, m_numbers, m_grid.bands(), m_names);
}

} // namespace kpFormats
