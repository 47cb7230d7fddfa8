// SPDX-License-Identifier: MIT
#include "formats/ogr/ShpFormat.h"

#include "export/ExportError.h"
#include "export/WriteErrors.h"
#include "formats/ogr/OgrFindings.h"

#include <QFile>
#include <QFileInfo>

#include <QtEndian>

namespace kpFormats
{

namespace
{

constexpr int headerSize = 100;
constexpr qint64 mostText = 1 << 16;

/// Places in a .shp are counted in words of 16 bits, by 31 bits of a number.
constexpr qint64 largestFile = Q_INT64_C(1) << 32;
/// What many readers take of any part of a Shapefile.
constexpr qint64 largestForMost = Q_INT64_C(1) << 31;

/// Bytes of an object's records: a head of 8 each, then the numbers of the geometry. Cells of a grid count for nothing,
/// since those without values are not written.
qint64 recordBytes(const OgrLayer& layer, const ModelObject& object)
{
    const qint64 vertices = object.vertexCount();
    if (layer.shape == OgrShape::Points)
        return object.grid ? 0 : vertices * (layer.hasZ ? 44 : 28);
    if (!asCells(layer, object))
        return vertices * (layer.hasZ ? 24 : 16);
    const qint64 triangle = 8 + 44 + 4 + 4 * 16 + (layer.hasZ ? 16 + 4 * 8 : 0);
    return object.grid ? 0 : featuresOf(layer, object) * triangle;
}

QByteArray head(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(headerSize) : QByteArray();
}

/// The text of a .prj or .cpg; a link may lead to a device that never ends.
QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(mostText) : QByteArray();
}

/// The size that the header of a .shp or .shx tells, in bytes; counted there in words of 16 bits.
qint64 toldSize(const QString& path)
{
    const QByteArray bytes = head(path);
    return bytes.size() < headerSize ? -1 : 2 * static_cast<qint64>(qFromBigEndian<qint32>(bytes.constData() + 24));
}

/// The size that a table needs for its records.
qint64 tableSize(const QString& path)
{
    const QByteArray bytes = head(path);
    if (bytes.size() < 12)
        return -1;
    const auto records = static_cast<qint64>(qFromLittleEndian<quint32>(bytes.constData() + 4));
    return qFromLittleEndian<quint16>(bytes.constData() + 8)
           + records * qFromLittleEndian<quint16>(bytes.constData() + 10);
}

/// Ends a table of \a size bytes with the mark that readers of dBase files look for, unless it is there.
bool endTable(const QString& path, qint64 size)
{
    constexpr char endOfFile = 0x1a;
    QFile file(path);
    if (file.size() > size)
        return true;
    const bool written = file.open(QIODevice::Append) && file.putChar(endOfFile) && file.flush();
    file.close();
    return written && file.error() == QFile::NoError;
}

} // namespace

FormatInfo ShpFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("shp");
    info.displayName = QStringLiteral("ESRI Shapefile");
    info.fileFormatName = QStringLiteral("SHP");
    return info;
}

SettingsTable ShpFormat::settings() const
{
    SettingsTable table = commonSettings();
    table.addInteger("decimals", &OgrExportSettings::decimals, -1, 15, tr("Decimals"),
                     tr("decimals of real numbers in the table; -1 for as many as they need"));
    return table;
}

QStringList ShpFormat::extensions() const
{
    return {QStringLiteral("shp")};
}

QStringList ShpFormat::sidecars() const
{
    // A style (.qml) is not among them: it may be the user's own work.
    QStringList list;
    for (const char* extension :
         {"shx", "dbf", "prj", "cpg", "qix", "qpj", "sbn", "sbx", "fbn", "fbx", "ain", "aih", "idm", "ind", "shp.xml"})
        list.append(QString::fromLatin1(extension));
    return list;
}

OgrTraits ShpFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("ESRI Shapefile");
    traits.fileKind = QStringLiteral("Shapefile");
    traits.names.mostBytes = 10;
    traits.names.plain = true;
    traits.mostFields = 255;
    traits.mostTextBytes = 254;
    traits.sizedTexts = true;
    traits.sizedNumbers = true;
    traits.moments = {TextMeaning::Date};
    traits.booleans = false;
    traits.emptyTexts = false;
    traits.firstId = 0;
    return traits;
}

void ShpFormat::requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>& layers) const
{
    if (QFileInfo(file.path).fileName().contains(QLatin1Char('\\')))
        throw ExportError(file.path, QStringLiteral("a Shapefile cannot have a name with a backslash"),
                          QStringLiteral("choose another name"));
    qint64 bytes = 0;
    for (const OgrLayer& layer : layers) {
        for (const ModelObject* object : layer.objects)
            bytes += recordBytes(layer, *object);
    }
    if (bytes > largestFile)
        throw ExportError(
            file.path,
            QStringLiteral("a Shapefile holds no more than 4 GB, and this one would have %1 MB").arg(bytes / 1000000),
            QStringLiteral("set grouping=object, or export as GeoPackage"));
}

void ShpFormat::tune(OgrOutput&, kpBaseExport::OGRExporterOptions& options, Findings&,
                     const kpBase::AbstractProgress*) const
{
    options.layerOptions.append(QStringLiteral("ENCODING=UTF-8"));
    // The driver would write the mark after each record, and go back over it for the next one.
    options.layerOptions.append(QStringLiteral("DBF_EOF_CHAR=NO"));
}

void ShpFormat::check(const OgrOutput& output, Findings& findings) const
{
    const QString base = output.path.left(output.path.size() - 4);
    for (const char* extension : {".shp", ".dbf"}) {
        const qint64 size = QFileInfo(base + QString::fromLatin1(extension)).size();
        findings.note(ogrFinding::largerThanTwoGigabytes, QString(), size >= largestForMost ? 1 : 0,
                      QStringLiteral("%1; many programs read no more of it").arg(QString::fromLatin1(extension)));
    }
    for (const char* extension : {".shp", ".shx"}) {
        const QString path = base + QString::fromLatin1(extension);
        if (toldSize(path) != QFileInfo(path).size())
            failIncomplete(output.file.path,
                           QStringLiteral("%1 is shorter than it says").arg(QString::fromLatin1(extension)));
    }
    const QString table = base + QStringLiteral(".dbf");
    const qint64 needed = tableSize(table);
    if (needed < 0 || QFileInfo(table).size() < needed || !endTable(table, needed))
        failIncomplete(output.file.path, QStringLiteral(".dbf is shorter than it says"));
    const QString system = base + QStringLiteral(".prj");
    if (QFileInfo::exists(system) && !contentOf(system).trimmed().endsWith(']'))
        failIncomplete(output.file.path, QStringLiteral(".prj is cut off"));
    if (contentOf(base + QStringLiteral(".cpg")).trimmed() != "UTF-8")
        failIncomplete(output.file.path, QStringLiteral(".cpg is cut off"));
    openAndCount(output, findings);
}

} // namespace kpFormats
