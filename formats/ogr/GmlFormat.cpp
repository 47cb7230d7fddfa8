// SPDX-License-Identifier: MIT
#include "formats/ogr/GmlFormat.h"

#include "export/ExportError.h"

#include <QFileInfo>

namespace kpFormats
{

FormatInfo GmlFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("gml");
    info.displayName = QStringLiteral("GML 3.2");
    info.fileFormatName = QStringLiteral("GML");
    return info;
}

SettingsTable GmlFormat::settings() const
{
    return commonSettings();
}

QStringList GmlFormat::extensions() const
{
    return {QStringLiteral("gml")};
}

QStringList GmlFormat::sidecars() const
{
    // The driver's notes on an earlier file would be taken for those on the new one.
    return {QStringLiteral("xsd"), QStringLiteral("gfs")};
}

OgrTraits GmlFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("GML");
    traits.fileKind = QStringLiteral("GML file");
    traits.names.xml = true;
    traits.layersAsFields = true;
    traits.names.reserved =
        QStringList{QStringLiteral("gml_id"), QStringLiteral("fid"), QStringLiteral("geometryProperty")};
    traits.moments = {TextMeaning::Date, TextMeaning::Time, TextMeaning::DateTime};
    traits.utc = true;
    traits.manyLayers = true;
    traits.readOptions = QStringList{QStringLiteral("EXPOSE_GML_ID=NO"), QStringLiteral("WRITE_GFS=NO")};
    traits.firstId = 0;
    traits.emptyTexts = false;
    traits.texts = OgrTraits::Texts::Xml;
    traits.digits = 15;
    traits.positionDigits = 15;
    return traits;
}

void GmlFormat::requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>&) const
{
    // The driver puts the name of the schema into the file as it is.
    const QString name = QFileInfo(file.path).fileName();
    if (name.contains(QLatin1Char('&')) || name.contains(QLatin1Char('<')) || name.contains(QLatin1Char('"')))
        throw ExportError(file.path, QStringLiteral("the name of a GML file cannot have &, < or \""),
                          QStringLiteral("choose another name"));
}

void GmlFormat::tune(OgrOutput&, kpBaseExport::OGRExporterOptions& options, Findings&,
                     const kpBase::AbstractProgress*) const
{
    options.datasetOptions.append(QStringLiteral("FORMAT=GML3.2"));
}

} // namespace kpFormats
