// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiFile.h"

#include "export/ExportError.h"
#include "export/PreparedExport.h"
#include "export/WriteErrors.h"
#include "formats/ascii/AsciiDecimals.h"
#include "formats/ascii/AsciiHints.h"
#include "formats/ascii/AsciiOutput.h"
#include "formats/ascii/AsciiVerification.h"
#include "model/ShareOfProgress.h"

#include <utility>

namespace kpFormats
{

AsciiFile::AsciiFile(PlannedFile planned, const ExportSelection& selected, AsciiExportSettings settings,
                     Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    requirePositions(file());
    const QString fault = separatorFault(m_settings);
    if (!fault.isEmpty())
        throw ExportError(file().path, QStringLiteral("customSeparator: ") + fault,
                          QStringLiteral("choose another separator"));
    const bool inColumns = m_settings.mode == AsciiExportSettings::Mode::Columns;
    if (m_settings.layout) {
        m_table = asciiTable(*m_settings.layout, selection().objects, inColumns, findings);
        noteHints(file().objects, m_settings, findings);
    } else {
        m_table = asciiTable(file().objects, selection().attributes, m_settings.decimals, findings);
        m_laidOut = !inColumns;
        if (m_settings.decimals == automaticDecimals)
            chooseDecimals(m_table, file().objects);
    }
    guardNames(m_table, m_settings);
    for (const ModelObject* object : file().objects) {
        noteHeights(*object, m_settings, findings);
        noteRounding(m_table, *object, findings);
    }
}

qint64 AsciiFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    if (!m_laidOut)
        layOutColumns(m_table, file().objects, m_settings);
    m_laidOut = true;
    ShareOfProgress share(progress, weightOf(file().objects));
    kpBaseExport::MatrixDataAsciiExporter writer(path, &share);
    writer.reportRows = true;
    prepareWriter(writer, m_table, m_settings);
    openWriter(writer, file().path);
    qint64 rows = 0;
    for (const ModelObject* object : file().objects) {
        share.next(object->weight());
        writeObject(writer, *object, m_table, m_settings, findings);
        rows += object->vertexCount();
        if (writer.cancelled() || writer.writeFailed())
            break;
    }
    closeWriter(writer, file().path);
    return rows;
}

std::optional<Verification> AsciiFile::verify(const QString& path) const
{
    return verifyAscii(file(), path, m_table, m_settings);
}

} // namespace kpFormats
