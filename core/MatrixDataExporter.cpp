// SPDX-License-Identifier: MIT
#include "core/MatrixDataExporter.h"

#include "core/GeoObject.h"

#include <QFile>

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

MatrixDataExporter::~MatrixDataExporter() = default;

void MatrixDataExporter::writeHeader(const GeoObject*) {}

void MatrixDataExporter::writeGeo(const GeoObject*) {}

bool MatrixDataExporter::fileOpen()
{
    if (fileName.isEmpty())
        return false;
    m_writeFailed = false;
    const QByteArray path = useTruePath ? QFile::encodeName(fileName) : fileName.toLatin1();
    // The host may have set a global locale; files never follow it.
    stream.imbue(std::locale::classic());
    stream.clear();
    stream.open(path.constData(), std::ios::out | std::ios::trunc);
    if (!stream.is_open())
        return false;
    stream.setf(std::ios::fixed, std::ios::floatfield);
    return true;
}

void MatrixDataExporter::fileClose()
{
    const bool wasOpen = stream.is_open();
    stream.close();
    if (wasOpen && stream.fail())
        m_writeFailed = true;
    if (m_writeFailed && throwOnWriteFailure)
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
