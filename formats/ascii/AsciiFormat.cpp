// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiFormat.h"

#include "export/ExportError.h"
#include "export/Foresight.h"
#include "formats/ascii/AsciiOutput.h"
#include "formats/ascii/AsciiVerification.h"
#include "host/data/FormatFile.h"
#include "model/ShareOfProgress.h"

#include <QJsonObject>

namespace kpFormats
{

FormatInfo AsciiFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("ascii");
    info.displayName = QStringLiteral("ASCII (delimited or fixed columns)");
    info.fileFormatName = QStringLiteral("ASCII");
    info.defaultExtension = QStringLiteral("csv");
    info.patterns = QStringLiteral("*.csv *.txt *.dat *.xyz");
    info.takesLayout = true;
    info.types = positionedObjectTypes();
    return info;
}

SettingsMap AsciiFormat::settings()
{
    SettingsMap map;
    map.addChoice("mode", m_settings.mode, {"separated", "columns"},
                  "values joined by a separator, or in fixed columns");
    map.addChoice("separator", m_settings.separator, {"blank", "tab", "comma", "semicolon", "custom"},
                  "what stands between values");
    map.addText("customSeparator", m_settings.customSeparator, "text of the custom separator");
    map.addBoolean("header", m_settings.header, "a first line with the names of the fields");
    map.addChoice("preset", m_settings.preset, {"none", "surfer", "gsplus", "arcview"},
                  "header line of another program");
    map.addInteger("decimals", m_settings.decimals, 0, 17, "decimals of coordinates and real attributes");
    map.addBoolean("writeNullValue", m_settings.writeNullValue, "write nullValue for missing numbers; else 0");
    map.addText("nullValue", m_settings.nullValue, "text of a missing number");
    map.addBoolean("lineBreaks", m_settings.lineBreaks, "object name before and empty line after each object");
    map.addBoolean("zIsElevation", m_settings.zIsElevation, "false writes depths, positive down");
    map.addChoice("grouping", m_settings.grouping, {"single", "object", "set"},
                  "one file, one per object, one per set");
    return map;
}

void AsciiFormat::loadLayout(const QString& path)
{
    AsciiLayout layout = readAsciiLayout(path);
    m_settings.mode = layout.mode;
    SettingsMap map = settings();
    for (const auto& setting : qAsConst(layout.settings)) {
        try {
            map.set(setting.first, setting.second);
        } catch (const SettingsError& error) {
            throw SettingsError(QStringLiteral("%1: \"settings\": %2").arg(path, QString::fromUtf8(error.what())));
        }
    }
    // The kind of layout is the file's type, whatever its settings say.
    m_settings.mode = layout.mode;
    m_layout = std::move(layout);
}

bool AsciiFormat::saveLayout(const QString& path)
{
    if (!m_layout)
        return false;
    FormatFile file;
    file.type() =
        m_settings.mode == AsciiExportSettings::Mode::Columns ? FormatFile::ColumnBased : FormatFile::FieldBased;
    // Without its path the file is the same for the same layout.
    for (const kpBaseExport::QESAttribute& attribute : qAsConst(m_layout->fields)) {
        FormatFile::Field field;
        field.setAttribute(attribute.record());
        file.addField(field);
    }
    QJsonObject members;
    const SettingsMap map = settings();
    for (const Setting& setting : map.settings()) {
        // The kind of layout is said by the file itself.
        if (setting.key != QLatin1String("mode"))
            members.insert(setting.key, setting.get());
    }
    file.unknown().insert(QStringLiteral("settings"), members);
    return file.write(path);
}

std::vector<PlannedFile> AsciiFormat::plan(const ExportSelection& selection) const
{
    return planFiles(selection, m_settings.grouping, QStringLiteral("csv"));
}

AsciiTable AsciiFormat::tableOf(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const
{
    const bool inColumns = m_settings.mode == AsciiExportSettings::Mode::Columns;
    if (m_layout)
        return asciiTable(*m_layout, selection.objects, inColumns, findings);
    AsciiTable table = asciiTable(file.objects, selection.attributes, m_settings.decimals, findings);
    if (inColumns)
        layOutColumns(table, file.objects, m_settings);
    return table;
}

Verification AsciiFormat::verify(const PlannedFile& file, const QString& path, const ExportSelection& selection)
{
    Findings alreadyReported;
    return verifyAscii(file, path, tableOf(file, selection, alreadyReported), m_settings);
}

void AsciiFormat::foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const
{
    requirePositions(file);
    // Not tableOf(): how wide columns must be is of no interest yet.
    if (m_layout)
        asciiTable(*m_layout, selection.objects, m_settings.mode == AsciiExportSettings::Mode::Columns, findings);
    else
        asciiTable(file.objects, selection.attributes, m_settings.decimals, findings);
    for (const ModelObject* object : file.objects)
        noteHeights(*object, m_settings, findings);
}

qint64 AsciiFormat::write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                          Findings& findings, kpBase::AbstractProgress* progress)
{
    const AsciiTable table = tableOf(file, selection, findings);
    ShareOfProgress share(progress, weightOf(file.objects));

    kpBaseExport::MatrixDataAsciiExporter writer(path, &share);
    writer.useTruePath = true;
    prepareWriter(writer, table, m_settings);
    if (!writer.fileOpen())
        throw ExportError(file.path, QStringLiteral("the file could not be opened for writing"),
                          QStringLiteral("check the directory's permissions and the disk"));
    qint64 rows = 0;
    for (const ModelObject* object : file.objects) {
        share.next(object->weight());
        writeObject(writer, *object, table, m_settings, findings);
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

} // namespace kpFormats
