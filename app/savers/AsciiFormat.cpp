// SPDX-License-Identifier: MIT
#include "app/savers/AsciiFormat.h"

#include "app/jobs/ExportError.h"
#include "app/jobs/ShareOfProgress.h"
#include "app/savers/AsciiRecord.h"
#include "writers/MatrixDataAsciiExporter.h"

namespace refhost
{

namespace
{

using Settings = AsciiExportSettings;
using Writer = kpBaseExport::MatrixDataAsciiExporter;

/// The writer's code of a separator.
int separatorCode(Settings::Separator separator)
{
    switch (separator) {
    case Settings::Separator::Blank:
        return 0;
    case Settings::Separator::Tab:
        return 1;
    case Settings::Separator::Comma:
        return 2;
    case Settings::Separator::Semicolon:
        return 3;
    case Settings::Separator::Custom:
        return 4;
    }
    return 2;
}

QString presetName(Settings::Preset preset)
{
    switch (preset) {
    case Settings::Preset::None:
        return {};
    case Settings::Preset::Surfer:
        return QStringLiteral("Surfer XYZ");
    case Settings::Preset::GsPlus:
        return QStringLiteral("GS+ XYZ");
    case Settings::Preset::ArcView:
        return QStringLiteral("ArcView XYZ");
    }
    return {};
}

/// The text that stands between two values; empty where values lie in fixed columns.
QString separatorText(const Settings& settings)
{
    if (settings.mode == Settings::Mode::Columns)
        return {};
    if (settings.preset == Settings::Preset::GsPlus)
        return QStringLiteral("\t");
    if (settings.preset != Settings::Preset::None)
        return QStringLiteral(",");
    static const QString texts[] = {QStringLiteral(" "), QStringLiteral("\t"), QStringLiteral(","), QStringLiteral(";")};
    return settings.separator == Settings::Separator::Custom ? settings.customSeparator
                                                             : texts[static_cast<int>(settings.separator)];
}

} // namespace

FormatInfo AsciiFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("ascii");
    info.displayName = QStringLiteral("ASCII (delimited or fixed columns)");
    info.fileFormatName = QStringLiteral("ASCII");
    info.defaultExtension = QStringLiteral("csv");
    info.patterns = QStringLiteral("*.csv *.txt *.dat *.xyz");
    info.types = {ObjectType::Pins,         ObjectType::Polygons,     ObjectType::Polylines,    ObjectType::Posts,
                  ObjectType::Wells,        ObjectType::Labels,       ObjectType::VertexClouds, ObjectType::GridSurfaces,
                  ObjectType::MeshSurfaces};
    return info;
}

SettingsMap AsciiFormat::settings()
{
    const auto texts = [](std::initializer_list<const char*> names) {
        QStringList list;
        for (const char* name : names)
            list.append(QString::fromLatin1(name));
        return list;
    };
    SettingsMap map;
    map.addChoice("mode", m_settings.mode, texts({"separated", "columns"}), "values joined by a separator, or in fixed columns");
    map.addChoice("separator", m_settings.separator, texts({"blank", "tab", "comma", "semicolon", "custom"}), "what stands between values");
    map.addText("customSeparator", m_settings.customSeparator, "text of the custom separator");
    map.addBoolean("header", m_settings.header, "a first line with the names of the fields");
    map.addChoice("preset", m_settings.preset, texts({"none", "surfer", "gsplus", "arcview"}), "header line of another program");
    map.addInteger("decimals", m_settings.decimals, 0, 17, "decimals of coordinates and real attributes");
    map.addBoolean("writeNullValue", m_settings.writeNullValue, "write nullValue for missing numbers; else 0");
    map.addText("nullValue", m_settings.nullValue, "text of a missing number");
    map.addBoolean("lineBreaks", m_settings.lineBreaks, "object name before and empty line after each object");
    map.addBoolean("zIsElevation", m_settings.zIsElevation, "false writes depths, positive down");
    map.addChoice("grouping", m_settings.grouping, texts({"single", "object", "set"}), "one file, one per object, one per set");
    return map;
}

std::vector<PlannedFile> AsciiFormat::plan(const ExportSelection& selection) const
{
    return planFiles(selection, m_settings.grouping, QStringLiteral("csv"));
}

qint64 AsciiFormat::write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                          ExportReport& report, kpBase::AbstractProgress* progress)
{
    AsciiTable table = asciiTable(file.objects, selection.attributes, m_settings.decimals, report);
    if (m_settings.mode == Settings::Mode::Columns)
        layOutColumns(table, file.objects, m_settings);
    double total = 0;
    for (const ModelObject* object : file.objects)
        total += object->weight();
    ShareOfProgress share(progress, total);

    Writer writer(path, &share);
    writer.useTruePath = true;
    writer.fields = table.fields;
    writer.mode = m_settings.mode == Settings::Mode::Columns ? Writer::ColumnBased : Writer::FieldBased;
    writer.separator = separatorCode(m_settings.separator);
    writer.customSeparator = m_settings.customSeparator;
    writer.zIsElevation = m_settings.zIsElevation;
    writer.headerPending = m_settings.header;
    writer.writeNullValue = m_settings.writeNullValue;
    writer.nullValue = m_settings.nullValue;
    writer.insertLineBreaks = m_settings.lineBreaks;
    if (!writer.fileOpen())
        throw ExportError(file.path, QStringLiteral("the file could not be opened for writing"),
                          QStringLiteral("check the directory's permissions and the disk"));
    qint64 rows = 0;
    for (const ModelObject* object : file.objects) {
        share.next(object->weight());
        fillRecord(*writer.geoObject(), *object, table, m_settings, separatorText(m_settings), report);
        writer.writeCustomHeader(writer.geoObject(), presetName(m_settings.preset));
        writer.writeGeo(writer.geoObject());
        rows += object->vertexCount();
        if (writer.cancelled() || writer.writeFailed())
            break;
    }
    writer.fileClose();
    if (writer.writeFailed())
        throw ExportError(file.path, QStringLiteral("the file could not be written completely"),
                          QStringLiteral("make room on the disk or choose another"));
    return rows;
}

} // namespace refhost
