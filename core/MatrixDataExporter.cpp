// SPDX-License-Identifier: MIT
#include "core/MatrixDataExporter.h"

#include "core/GeoObject.h"
#include "core/TruePath.h"

#include <cerrno>
#include <locale>
#include <stdexcept>

namespace kpBaseExport
{

MatrixDataExporter::MatrixDataExporter(const QString& file, kpBase::AbstractProgress* reporter)
    : fileName(file)
    , progress(reporter)
    , m_record(std::make_unique<GeoObject>())
{
}

MatrixDataExporter::~MatrixDataExporter()
{
    // What is still to be written goes out while the record is there.
    stream.close();
}

void MatrixDataExporter::writeHeader(const GeoObject*) {}

void MatrixDataExporter::writeGeo(const GeoObject*) {}

bool MatrixDataExporter::fileOpen()
{
    if (fileName.isEmpty())
        return false;
    if (!stream.is_open()) {
        m_writeFailed = false;
        m_systemError = 0;
        blockStream = BlockStream();
        // The host may have set a global locale; files never follow it.
        stream.imbue(std::locale::classic());
        stream.clear();
    }
    errno = 0;
    // A file that is still open makes this fail, and the stream is_open() afterwards all the same.
    if (useTruePath)
        stream.open(truePath(fileName), std::ios::out | std::ios::trunc);
    else
        stream.open(fileName.toLatin1().constData(), std::ios::out | std::ios::trunc);
    if (stream.fail()) {
        m_systemError = errno;
        return false;
    }
    blockStream = BlockStream(stream.rdbuf());
    stream.setf(std::ios::fixed, std::ios::floatfield);
    return true;
}

void MatrixDataExporter::fileClose()
{
    const bool wasOpen = stream.is_open();
    blockStream.flush();
    const bool lost = blockStream.lost();
    errno = 0;
    stream.close();
    if (blockStream.failed())
        m_systemError = blockStream.error();
    else if (wasOpen && stream.fail())
        m_systemError = errno;
    m_writeFailed = m_writeFailed || blockStream.failed() || (wasOpen && stream.fail());
    blockStream = BlockStream();
    if (throwOnWriteFailure && lost)
        throw std::runtime_error(
            ErrorMessage(QStringLiteral("No file was open for what has been written"), -1).toStdString());
    if (throwOnWriteFailure && wasOpen && m_writeFailed)
        throw std::runtime_error(
            ErrorMessage(QStringLiteral("The file could not be written completely"), -1).toStdString());
}

GeoObject* MatrixDataExporter::geoObject() const
{
    return m_record.get();
}

void MatrixDataExporter::write(const QString& file)
{
    if (!m_record)
        throw std::logic_error("No data allocated");
    if (!file.isEmpty()) {
        fileName = file;
        if (!fileOpen())
            throw std::logic_error("No write access on File");
    }
    writeHeader(m_record.get());
    writeGeo(m_record.get());
    fileClose();
}

void MatrixDataExporter::write()
{
    if (!m_record)
        throw std::logic_error("No data allocated");
    if (fileName.isEmpty())
        throw std::logic_error("No File Name defined");
    if (!stream.is_open())
        throw std::logic_error("File is not open");
    writeHeader(m_record.get());
    writeGeo(m_record.get());
}

bool MatrixDataExporter::writeFailed() const
{
    return m_writeFailed || blockStream.failed() || (stream.is_open() && stream.fail());
}

int MatrixDataExporter::systemError() const
{
    return blockStream.failed() ? blockStream.error() : m_systemError;
}

QString MatrixDataExporter::ErrorMessage(const QString& text, int line) const
{
    QString message = fileName + QStringLiteral(" : ") + text;
    if (line != -1)
        message += QStringLiteral(" (in line %1)").arg(line);
    return message;
}

} // namespace kpBaseExport
