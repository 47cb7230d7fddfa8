// SPDX-License-Identifier: MIT
#include "formats/ogr/TabFormat.h"

#include "export/CommonFindings.h"
#include "export/WriteErrors.h"
#include "formats/ogr/OgrFindings.h"
#include "formats/ogr/TabSystem.h"
#include "geo/CheckedWrites.h"
#include "geo/CoordinateSystems.h"
#include "host/data/AbstractProgress.h"
#include "model/OutputUnit.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <QtEndian>

#include <cpl_vsi.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

using kpBaseExport::OGRExporterOptions;

/// Positions are whole numbers of 32 bits, of which so many are used in each direction.
constexpr double gridSteps = 2e9;

struct Bounds
{
    double least[2] = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    double most[2] = {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};

    qint64 count = 0; ///< vertices

    bool isEmpty() const { return least[0] > most[0]; }
    void add(const std::array<double, 3>& position)
    {
        for (std::size_t axis = 0; axis < 2; ++axis) {
            least[axis] = std::min(least[axis], position[axis]);
            most[axis] = std::max(most[axis], position[axis]);
        }
    }
    /// A margin, so that no position lies on the edge, and something around a single point.
    void widen()
    {
        for (std::size_t axis = 0; axis < 2; ++axis) {
            const double margin = std::max(0.01 * (most[axis] - least[axis]), 1.0);
            least[axis] -= margin;
            most[axis] += margin;
        }
    }
    double step() const { return std::max(most[0] - least[0], most[1] - least[1]) / gridSteps; }
    QString text() const
    {
        QStringList numbers;
        for (const double number : {least[0], least[1], most[0], most[1]})
            numbers.append(QString::number(number, 'f', 9));
        return numbers.join(QLatin1Char(','));
    }
};

/// Character sets of MapInfo tables: Qt's name and GDAL's.
struct CharacterSet
{
    const char* codec;
    const char* encoding;
};

constexpr CharacterSet characterSets[] = {
    {"windows-1252", "CP1252"}, {"windows-1250", "CP1250"}, {"windows-1251", "CP1251"}, {"windows-1253", "CP1253"},
    {"windows-1254", "CP1254"}, {"windows-1257", "CP1257"}, {"windows-1255", "CP1255"}, {"windows-1256", "CP1256"},
    {"Shift_JIS", "CP932"},     {"GB2312", "CP936"},        {"Big5", "CP950"},          {"windows-949", "CP949"},
};

/// The first character set that has every character; empty when none has.
QString encodingOf(const QString& characters)
{
    for (const CharacterSet& set : characterSets) {
        const QTextCodec* codec = QTextCodec::codecForName(set.codec);
        if (codec && codec->canEncode(characters))
            return QString::fromLatin1(set.encoding);
    }
    return {};
}

qint64 numberAt(const QByteArray& bytes, int place, int size)
{
    return size == 4 ? qFromLittleEndian<quint32>(bytes.constData() + place)
                     : qFromLittleEndian<quint16>(bytes.constData() + place);
}

/// The step from which on the grid takes something from a position: a millimetre, in the unit of the coordinates.
double noticedStep(const QString& system, const ModelObject& first)
{
    constexpr double millimetre = 0.001;
    constexpr double millimetreInDegrees = 1e-8;
    OGRSpatialReference reference;
    if (system.isEmpty() || reference.SetFromUserInput(system.toUtf8().constData()) != OGRERR_NONE)
        return millimetre / unitFactor(first.lengthUnit, OutputUnit::Metre);
    return reference.IsGeographic() ? millimetreInDegrees : millimetre / reference.GetLinearUnits();
}

/// Of all positions in the system of the output; of no use when the user cancels.
Bounds boundsOf(OgrOutput& output, const kpBase::AbstractProgress* progress)
{
    Bounds bounds;
    OgrVertices vertices(output.systems);
    for (const ModelObject* object : output.file.objects) {
        vertices.start(*object);
        for (std::size_t vertex = 0; vertex < object->x->size(); ++vertex) {
            if (progress && vertex % (1 << 14) == 0 && progress->isCancelled())
                return bounds;
            const std::array<double, 3>& position = vertices.at(vertex);
            if (!std::isnan(position[0]))
                bounds.add(position);
        }
        bounds.count += object->vertexCount();
    }
    return bounds;
}

} // namespace

FormatInfo TabFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("tab");
    info.displayName = QStringLiteral("MapInfo TAB");
    info.fileFormatName = QStringLiteral("TAB");
    return info;
}

SettingsTable TabFormat::settings() const
{
    SettingsTable table = commonSettings();
    table.addBoolean("zField", &OgrExportSettings::zField, tr("Z field"), tr("heights of points in a field z"));
    return table;
}

QStringList TabFormat::extensions() const
{
    return {QStringLiteral("tab")};
}

QStringList TabFormat::sidecars() const
{
    return {QStringLiteral("map"), QStringLiteral("id"),  QStringLiteral("dat"), QStringLiteral("ind"),
            QStringLiteral("tda"), QStringLiteral("tin"), QStringLiteral("tma"), QStringLiteral("lda")};
}

OgrTraits TabFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("MapInfo File");
    traits.fileKind = QStringLiteral("MapInfo table");
    traits.names.mostBytes = 31;
    traits.names.ascii = true;
    traits.mostFields = 250;
    traits.mostTextBytes = 254;
    traits.sizedTexts = true;
    traits.moments = {TextMeaning::Date, TextMeaning::Time, TextMeaning::DateTime};
    traits.booleans = false;
    traits.nulls = false;
    traits.emptyTexts = false;
    traits.heights = false;
    return traits;
}

void TabFormat::tune(OgrOutput& output, OGRExporterOptions& options, Findings& findings,
                     const kpBase::AbstractProgress* progress) const
{
    options.styleByGeometry = output.settings.symbology;
    Bounds bounds = boundsOf(output, progress);
    if (progress && progress->isCancelled())
        return;
    if (!bounds.isEmpty()) {
        bounds.widen();
        options.layerOptions.append(QStringLiteral("BOUNDS=") + bounds.text());
        if (bounds.step() > noticedStep(output.systems.target(), *output.file.objects.front()))
            findings.note(
                ogrFinding::coordinatesOnAGrid, QString(), bounds.count,
                QStringLiteral(
                    "its step is %1 of the coordinates' unit; export what lies far apart into files of their own")
                    .arg(bounds.step(), 0, 'g', 3));
    }
    QString characters;
    for (const OgrTable& table : output.tables)
        characters += table.foreignTexts;
    // The driver converts each text on its own; where none needs it, the table is only told, in complete().
    if (characters.isEmpty())
        return;
    const QString encoding = encodingOf(characters);
    options.layerOptions.append(QStringLiteral("ENCODING=")
                                + (encoding.isEmpty() ? QStringLiteral("UTF-8") : encoding));
    if (encoding.isEmpty()) {
        findings.note(
            ogrFinding::textsOfSeveralScripts, QString(), 1,
            QStringLiteral("no character set of MapInfo holds them; they are in UTF-8, which the table cannot tell"));
    }
}

WrittenSystem TabFormat::writtenSystem(OgrOutput& output, Findings& findings) const
{
    const QString& target = output.systems.target();
    const Bounds bounds = target.isEmpty() ? Bounds() : boundsOf(output, nullptr);
    if (bounds.isEmpty())
        return {target, 0.0};
    // The middle stands in the middle.
    std::vector<std::array<double, 2>> places;
    for (const double x : {0.0, 0.5, 1.0}) {
        for (const double y : {0.0, 0.5, 1.0})
            places.push_back({bounds.least[0] + x * (bounds.most[0] - bounds.least[0]),
                              bounds.least[1] + y * (bounds.most[1] - bounds.least[1])});
    }
    const WrittenSystem system = tabSystem(target, places);
    constexpr double noticed = 0.01;
    if (system.wkt.isEmpty())
        findings.note(finding::coordinateSystemNotCarried, QString(), 1,
                      QStringLiteral("a MapInfo table has no way to say %1").arg(crsName(target)));
    else if (system.off > noticed)
        findings.note(ogrFinding::coordinateSystemApproximate, QString(), 1,
                      QStringLiteral("%1: readers will place the file up to %2 m beside where it is")
                          .arg(crsName(target))
                          .arg(system.off, 0, 'g', 2));
    return system;
}

void TabFormat::complete(const OgrOutput& output, const kpBase::AbstractProgress*) const
{
    const bool onlyLatin = std::all_of(output.tables.begin(), output.tables.end(),
                                       [](const OgrTable& table) { return table.foreignTexts.isEmpty(); });
    if (!onlyLatin)
        return;
    QFile file(output.path);
    QByteArray definition = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    file.close();
    definition.replace("!charset Neutral", "!charset WindowsLatin1");
    definition.replace("Type NATIVE Charset \"Neutral\"", "Type NATIVE Charset \"WindowsLatin1\"");
    VSILFILE* const written = VSIFOpenL(CheckedWrites::pathFor(output.path).toUtf8().constData(), "wb");
    if (!written)
        return; // and what hinders it is noted
    VSIFWriteL(definition.constData(), 1, static_cast<std::size_t>(definition.size()), written);
    VSIFCloseL(written);
}

void TabFormat::addStyle(const OgrOutput& output, Findings& findings) const
{
    // Pens, brushes and symbols stand in the table itself; the exporter takes them from the field "colorval".
    if (!output.settings.attributes || !output.settings.color)
        findings.note(ogrFinding::colourNotCarried, QString(), 1,
                      QStringLiteral("it is taken from the field colorval; switch attributes and color on"));
}

void TabFormat::check(const OgrOutput& output, Findings& findings) const
{
    const QString base = output.path.left(output.path.size() - 4);
    QFile table(base + QStringLiteral(".dat"));
    const QByteArray head = table.open(QIODevice::ReadOnly) ? table.read(12) : QByteArray();
    if (head.size() < 12 || table.size() < numberAt(head, 8, 2) + numberAt(head, 4, 4) * numberAt(head, 10, 2))
        failIncomplete(output.file.path, QStringLiteral(".dat is shorter than it says"));
    // Blocks of 512 bytes; an index of 4 bytes per feature.
    const qint64 map = QFileInfo(base + QStringLiteral(".map")).size();
    if (map == 0 || map % 512 != 0)
        failIncomplete(output.file.path, QStringLiteral(".map does not end with a whole block"));
    if (QFileInfo(base + QStringLiteral(".id")).size() < 4 * output.features.front())
        failIncomplete(output.file.path, QStringLiteral(".id is shorter than its features need"));
    QFile text(output.path);
    const QByteArray definition = text.open(QIODevice::ReadOnly) ? text.readAll() : QByteArray();
    if (!definition.startsWith("!table") || !definition.endsWith('\n'))
        failIncomplete(output.file.path, QStringLiteral("its definition is cut off"));
    openAndCount(output, findings);
}

} // namespace kpFormats
