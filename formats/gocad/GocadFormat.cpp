// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadFormat.h"
#include "formats/gocad/GocadFindings.h"

#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "formats/gocad/GocadVerification.h"
#include "formats/gocad/GocadWriter.h"
#include "model/ShareOfProgress.h"
#include "model/SurfaceMesh.h"

#include <QFileInfo>

namespace kpFormats
{

namespace
{

/// The extension that tells what is in the file; "gp" for a mixture.
QString extensionOf(const std::vector<const ModelObject*>& objects, const GocadExportSettings& settings)
{
    static const QString extensions[] = {QStringLiteral("vs"), QStringLiteral("pl"), QStringLiteral("ts")};
    QString extension;
    for (const ModelObject* object : objects) {
        const QString own = extensions[static_cast<int>(gocadKindOf(*object, settings))];
        if (!extension.isEmpty() && extension != own)
            return QStringLiteral("gp");
        extension = own;
    }
    return extension.isEmpty() ? extensions[2] : extension;
}

} // namespace

FormatInfo GocadFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("gocad");
    info.displayName = QStringLiteral("GOCAD ASCII");
    info.fileFormatName = QStringLiteral("GOCAD");
    info.defaultExtension = QStringLiteral("ts");
    info.patterns = QStringLiteral("*.ts *.pl *.vs *.gp");
    info.types = positionedObjectTypes();
    return info;
}

SettingsMap GocadFormat::settings()
{
    SettingsMap map;
    map.addChoice("grouping", m_settings.grouping, {"single", "object", "set"},
                  "one file, one per object, one per set");
    map.addText("filePrefix", m_settings.filePrefix, "begins the names of several files in a directory");
    map.addBoolean("header", m_settings.header, "write each object's name and colour");
    map.addChoice("zPositive", m_settings.zPositive, {"elevation", "depth"}, "z counts up or down; said in the file");
    map.addChoice("lengthUnit", m_settings.lengthUnit, outputUnitKeys(),
                  "unit of coordinates; model keeps each object's own");
    map.addInteger("decimals", m_settings.decimals, 0, 12, "decimals of coordinates");
    map.addReal("nullValue", m_settings.nullValue, -1e38, 1e38, "stands for a missing property value");
    map.addChoice("gridsAs", m_settings.gridsAs, {"surface", "points"},
                  "grid surfaces as triangulated surfaces or as vertex sets");
    return map;
}

std::vector<PlannedFile> GocadFormat::plan(const ExportSelection& selection) const
{
    const QString usual = info().defaultExtension;
    std::vector<PlannedFile> files = planFiles(selection, m_settings.grouping, usual, m_settings.filePrefix);
    const QFileInfo chosen(selection.path);
    const bool device = chosen.exists() && !chosen.isFile() && !chosen.isDir();
    if (chosen.suffix().isEmpty() && !device) {
        for (PlannedFile& file : files) {
            if (file.path.endsWith(QLatin1Char('.') + usual))
                file.path = file.path.left(file.path.size() - usual.size()) + extensionOf(file.objects, m_settings);
        }
    }
    return files;
}

void GocadFormat::foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const
{
    qint64 placed = 0;
    for (const ModelObject* object : file.objects) {
        if (hasAnyPosition(*object)) {
            ++placed;
            numberColumns(*object, selection, findings);
            noteGocadForm(*object, m_settings, findings);
        } else {
            findings.note(gocadFinding::objectWithoutPosition, object->name, 1, object->name);
        }
    }
    if (placed == 0)
        throw ExportError(
            file.path,
            QStringLiteral("none of its objects has a position, the first is %1").arg(file.objects.front()->name),
            QStringLiteral("choose objects with coordinates"));
    noteMissingAttributes(file.objects, selection, findings);
}

qint64 GocadFormat::write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                          Findings& findings, kpBase::AbstractProgress* progress)
{
    ShareOfProgress share(progress, weightOf(file.objects));
    noteMissingAttributes(file.objects, selection, findings);
    BlockWriter out(path, file.path);
    GocadWriter writer(out, m_settings, selection, findings);
    qint64 rows = 0;
    for (const ModelObject* object : file.objects) {
        share.next(object->weight());
        if (share.isCancelled())
            return rows;
        if (!hasAnyPosition(*object)) {
            findings.note(gocadFinding::objectWithoutPosition, object->name, 1, object->name);
            continue;
        }
        rows += writer.write(*object, &share);
    }
    out.close();
    return rows;
}

Verification GocadFormat::verify(const PlannedFile& file, const QString& path, const ExportSelection& selection)
{
    return verifyGocad(file.objects, path, selection, m_settings);
}

} // namespace kpFormats
