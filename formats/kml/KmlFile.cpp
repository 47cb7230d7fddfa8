// SPDX-License-Identifier: MIT
#include "formats/kml/KmlFile.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "formats/kml/KmlDocumentWriter.h"
#include "formats/kml/KmlDrawing.h"
#include "formats/kml/KmlLosses.h"
#include "formats/kml/KmlVerification.h"
#include "formats/kml/KmzArchive.h"
#include "geo/CoordinateSystems.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace kpFormats
{

namespace
{

/// More surfaces than this need a .kmz, or a file for each: their pictures could not be found again to be replaced.
constexpr int mostPictures = 32;

/// "overlay.png" for the first picture of a file, then "overlay2.png" ... No picture of the user's own is named so.
QString pictureExtension(int number)
{
    return number == 1 ? QStringLiteral("overlay.png") : QStringLiteral("overlay%1.png").arg(number);
}

/// A file name as the document refers to it: what a reader would take for part of the address is encoded.
QString reference(QString name)
{
    return name.replace(QLatin1Char('%'), QStringLiteral("%25"))
        .replace(QLatin1Char('#'), QStringLiteral("%23"))
        .replace(QLatin1Char('?'), QStringLiteral("%3F"));
}

QString pictureName(const QString& path, bool inArchive, int number)
{
    return (inArchive ? QStringLiteral("picture") : QFileInfo(path).completeBaseName()) + QLatin1Char('.')
           + pictureExtension(number);
}

/// Whether an object of the type is a single placemark, with one table of attributes.
bool hasOnePlacemark(ObjectType type)
{
    switch (type) {
    case ObjectType::Polygons:
    case ObjectType::Polylines:
    case ObjectType::Wells:
    case ObjectType::MeshSurfaces:
    case ObjectType::GridSurfaces:
    case ObjectType::Images:
        return true;
    default:
        return false;
    }
}

bool isDevice(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

/// The folder in which an archive is prepared is beside it, on the same disk; a device has none.
/// QImage::save() does not tell of every write that fails.
bool savePicture(const QImage& image, const QString& path)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QFile file(path);
    if (!image.save(&buffer, "PNG") || !file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        || file.write(bytes) != bytes.size())
        return false;
    file.close();
    return file.error() == QFileDevice::NoError;
}

QString archiveFolderTemplate(const QString& path)
{
    return (isDevice(path) ? QDir::temp() : QFileInfo(path).absoluteDir()).filePath(QStringLiteral("kmz-XXXXXX"));
}

} // namespace

bool isArchive(const QString& path, const KmlExportSettings& settings)
{
    return settings.compress || path.endsWith(QLatin1String(".kmz"), Qt::CaseInsensitive);
}

void KmlFile::requireSystems() const
{
    const QString cure = QStringLiteral("name it in the setting crs, such as EPSG:28350, or leave out what has none");
    if (!m_settings.crs.isEmpty() && wktOf(m_settings.crs).isEmpty())
        throw ExportError(file().path, QStringLiteral("\"%1\" is not a known coordinate system").arg(m_settings.crs),
                          QStringLiteral("set crs to one like EPSG:28350"));
    int without = 0;
    QString first;
    for (const ModelObject* object : file().objects) {
        if (object->crs.isEmpty() && m_settings.crs.isEmpty() && without++ == 0)
            first = object->name;
    }
    if (without == 1)
        throw ExportError(file().path, QStringLiteral("the object %1 has no coordinate system").arg(first), cure);
    if (without > 1)
        throw ExportError(
            file().path,
            QStringLiteral("%1 objects have no coordinate system, the first is %2").arg(without).arg(first), cure);
}

void KmlFile::requireDrawable() const
{
    int pictures = 0;
    bool any = false;
    for (const ModelObject* object : file().objects) {
        const bool drawable = undrawable(*object).isEmpty();
        any = any || drawable;
        const bool surface = object->type == ObjectType::GridSurfaces || object->type == ObjectType::Images;
        pictures += drawable && surface ? 1 : 0;
    }
    const ModelObject& first = *file().objects.front();
    if (!any)
        throw ExportError(file().path,
                          QStringLiteral("nothing of %1 can be drawn: %2").arg(first.name, undrawable(first)),
                          QStringLiteral("check its type in the model file, or choose another object"));
    if (pictures > mostPictures && !m_archive)
        throw ExportError(file().path, QStringLiteral("there are more than %1 surfaces").arg(mostPictures),
                          QStringLiteral("set compress=true or grouping=object"));
}

KmlFile::KmlFile(PlannedFile planned, const ExportSelection& selected, KmlExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_archive(isArchive(file().path, m_settings))
{
    requireSystems();
    requireDrawable();
    TransformCache transforms(wktOf(QStringLiteral("EPSG:4326")));
    const QString own = wktOf(m_settings.crs);
    for (const ModelObject* object : file().objects) {
        transforms.from(object->crs.isEmpty() ? own : object->crs);
        const QString fault = undrawable(*object);
        if (!fault.isEmpty()) {
            m_undrawable.insert(object);
            findings.note(finding::objectLeftOut, *object, 1, fault);
        }
        noteLinesOnGround(*object, m_settings, findings);
        if (fault.isEmpty() && hasOnePlacemark(object->type))
            noteVertexAttributes(*object, m_settings, selection(), findings);
    }
}

QStringList KmlFile::sidecars() const
{
    // The pictures of a .kml of the same name are not those of an archive.
    if (m_archive)
        return {};
    QStringList extensions;
    const int pictures = m_settings.grouping == FileGrouping::Object ? 1 : mostPictures;
    for (int number = 1; number <= pictures; ++number)
        extensions.append(pictureExtension(number));
    return extensions;
}

qint64 KmlFile::writeDocument(const QString& document, Findings& findings, ProgressTicker& ticker) const
{
    KmlDocumentWriter writer(document, file().path);
    int kept = 0;
    const auto keep = [&](const QImage& image) {
        const QString name = pictureName(document, m_archive, ++kept);
        if (isDevice(document) || !savePicture(image, QFileInfo(document).absoluteDir().filePath(name)))
            throw ExportError(file().path, QStringLiteral("the picture %1 could not be written").arg(name),
                              QStringLiteral("make room on the disk or choose another"));
        return reference(name);
    };
    KmlDrawing drawing(writer, m_settings, m_undrawable, keep, ticker, findings);
    const qint64 features = drawing.draw(file().objects, selection());
    writer.close();
    return features;
}

qint64 KmlFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    ProgressTicker ticker(progress, weightOf(file().objects));
    if (!m_archive)
        return writeDocument(path, findings, ticker);
    const QTemporaryDir folder(archiveFolderTemplate(path));
    if (!folder.isValid())
        throw ExportError(file().path, QStringLiteral("there is no place to prepare the archive"),
                          QStringLiteral("make room on the disk or choose another"));
    const QString document = folder.filePath(QStringLiteral("doc.kml"));
    const qint64 features = writeDocument(document, findings, ticker);
    QStringList files = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
    files.removeOne(QStringLiteral("doc.kml"));
    files.prepend(QStringLiteral("doc.kml"));
    if (!ticker.cancelled())
        writeArchive(path, folder.path(), files);
    return features;
}

std::optional<Verification> KmlFile::verify(const QString& path) const
{
    return verifyKml(file().objects, path, m_archive, selection(), m_settings,
                     [&](int number) { return pictureName(path, m_archive, number); });
}

} // namespace kpFormats
