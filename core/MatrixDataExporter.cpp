// SPDX-License-Identifier: MIT
#include "core/MatrixDataExporter.h"

#include "core/GeoObject.h"

#include <QFile>

#include <filesystem>
#include <locale>
#include <stdexcept>

namespace kpBaseExport
{

namespace
{

/// The file that everybody else means by \a name.
std::filesystem::path truePath(const QString& name)
{
#ifdef Q_OS_WIN
    return name.toStdWString();
#else
    return QFile::encodeName(name).toStdString();
#endif
}

} // namespace

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
        m_lost = false;
        // The host may have set a global locale; files never follow it.
        stream.imbue(std::locale::classic());
        stream.clear();
    }
    // A file that is still open makes this fail, and the stream is_open() afterwards all the same.
    if (useTruePath)
        stream.open(truePath(fileName), std::ios::out | std::ios::trunc);
    else
        stream.open(fileName.toLatin1().constData(), std::ios::out | std::ios::trunc);
    if (stream.fail())
        return false;
    stream.setf(std::ios::fixed, std::ios::floatfield);
    return true;
}

void MatrixDataExporter::fileClose()
{
    const bool wasOpen = stream.is_open();
    const bool lost = m_lost;
    m_lost = false;
    stream.close();
    if (wasOpen && stream.fail())
        m_writeFailed = true;
    if (throwOnWriteFailure && lost)
        throw std::runtime_error(
            ErrorMessage(QStringLiteral("No file was open for what has been written"), -1).toStdString());
    if (throwOnWriteFailure && wasOpen && m_writeFailed)
        throw std::runtime_error(
            ErrorMessage(QStringLiteral("The file could not be written completely"), -1).toStdString());
}

void MatrixDataExporter::put(const char* text, std::size_t size)
{
    if (size > 0 && !stream.is_open()) {
        m_lost = true;
        m_writeFailed = true;
    }
    stream.write(text, static_cast<std::streamsize>(size));
}

void MatrixDataExporter::put(const std::string& text)
{
    put(text.data(), text.size());
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
    return m_writeFailed || (stream.is_open() && stream.fail());
}

QString MatrixDataExporter::ErrorMessage(const QString& text, int line) const
{
    QString message = fileName + QStringLiteral(" : ") + text;
    if (line != -1)
        message += QStringLiteral(" (in line %1)").arg(line);
    return message;
}

} // namespace kpBaseExport
