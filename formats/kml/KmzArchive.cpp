// SPDX-License-Identifier: MIT
#include "formats/kml/KmzArchive.h"

#include "geo/CheckedWrites.h"
#include "geo/GdalSession.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cpl_conv.h>

#include <stdexcept>

namespace kpFormats
{

namespace
{

constexpr qint64 blockSize = 1 << 20;

bool addFile(void* archive, const QString& source, const QString& name)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly) || CPLCreateFileInZip(archive, name.toUtf8().constData(), nullptr) != CE_None)
        return false;
    while (!file.atEnd()) {
        const QByteArray block = file.read(blockSize);
        if (block.isEmpty() || CPLWriteFileInZip(archive, block.constData(), block.size()) != CE_None)
            return false;
    }
    return CPLCloseFileInZip(archive) == CE_None;
}

} // namespace

void writeArchive(const QString& path, const QString& folder, const QStringList& files)
{
    const QuietGdal quiet;
    const CheckedWrites checked(path);
    const QFileInfo target(path);
    // A pipe has no places, which the checked files write to.
    const QString place = target.exists() && !target.isFile() ? path : CheckedWrites::pathFor(path);
    void* const archive = CPLCreateZip(place.toUtf8().constData(), nullptr);
    bool written = archive != nullptr;
    for (const QString& file : files)
        written = written && addFile(archive, QDir(folder).filePath(file), file);
    // The directory of the archive is written on closing.
    if (archive)
        written = CPLCloseZip(archive) == CE_None && written;
    if (!written || checked.failure())
        throw std::runtime_error(
            "the archive could not be written completely (make room on the disk or choose another)");
}

} // namespace kpFormats
