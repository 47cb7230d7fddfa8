// SPDX-License-Identifier: MIT
#include "export/FilePlan.h"

#include "export/SafeNames.h"
#include "export/TargetPath.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace kpFormats
{

QString withExtension(const QString& path, const QString& extension)
{
    const QFileInfo info(path);
    // A device or a directory keeps its name.
    if (!info.suffix().isEmpty() || extension.isEmpty() || info.isDir() || TargetPath(path).isStream())
        return path;
    return path + QLatin1Char('.') + extension;
}

std::vector<PlannedFile> planFiles(const ExportSelection& selection, FileGrouping grouping, const QString& extension,
                                   const QString& prefix)
{
    if (grouping == FileGrouping::Single)
        return {{withExtension(selection.path, extension), selection.objects}};

    QString front = selection.path;
    QString back = QLatin1Char('.') + extension;
    if (QFileInfo(selection.path).isDir()) {
        front = QDir(selection.path).path() + QLatin1Char('/');
        front += prefix.isEmpty() ? QString() : safeFileNamePart(prefix) + QLatin1Char('_');
    } else {
        const QFileInfo info(withExtension(selection.path, extension));
        front = info.path() + QLatin1Char('/') + info.completeBaseName() + QLatin1Char('_');
        back = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    }
    std::vector<PlannedFile> files;
    UniqueNames names;
    QHash<QString, std::size_t> places;
    const bool bySet = grouping == FileGrouping::Set;
    for (const ModelObject* object : selection.objects) {
        if (bySet && places.contains(object->set)) {
            files[places[object->set]].objects.push_back(object);
            continue;
        }
        if (bySet)
            places.insert(object->set, files.size());
        const QString wanted = bySet ? object->set : object->name;
        const QString name = names.take(safeFileNamePart(wanted));
        files.push_back({front + name + back, {object}, name == wanted ? QString() : wanted});
    }
    return files;
}

std::vector<PlannedFile> planOneEach(const ExportSelection& selection, const QString& extension, const QString& prefix)
{
    const bool alone = selection.objects.size() == 1 && !QFileInfo(selection.path).isDir();
    return planFiles(selection, alone ? FileGrouping::Single : FileGrouping::Object, extension, prefix);
}

} // namespace kpFormats
