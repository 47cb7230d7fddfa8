// SPDX-License-Identifier: MIT
#include "export/PreparedExport.h"

#include "export/CommonFindings.h"
#include "export/FreePaths.h"
#include "export/ObjectError.h"
#include "model/ObjectCheck.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace kpFormats
{

namespace
{

void remove(std::vector<const ModelObject*>& objects, const ModelObject& object)
{
    objects.erase(std::remove(objects.begin(), objects.end(), &object), objects.end());
}

/// The objects of a file that are sound; the others are noted as failed.
std::vector<const ModelObject*> soundObjects(PreparedExport::Output& output)
{
    std::vector<const ModelObject*> sound = output.planned.objects;
    for (const ModelObject* object : output.planned.objects) {
        const QString fault = faultOf(*object);
        if (fault.isEmpty())
            continue;
        output.failedObjects.push_back(
            {object->name, QStringLiteral("%1 (load it again or repair its source)").arg(fault), object->id});
        remove(sound, *object);
    }
    return sound;
}

/// Replacing the file that was named has been agreed to, but not what happens to lie beside it.
/// \throws ExportError when what goes with a file would take the place of a source
void requireSourcesStay(const PreparedFile& file, const QStringList& sources)
{
    for (const QString& path : file.earlierSidecars()) {
        const QFileInfo sidecar(path);
        if (std::any_of(sources.begin(), sources.end(),
                        [&sidecar](const QString& source) { return QFileInfo(source) == sidecar; }))
            throw ExportError(
                file.file().path,
                QStringLiteral("%1 goes with it, and is a file that the export reads").arg(sidecar.fileName()),
                QStringLiteral("choose another name"));
    }
}

QStringList earlierFilesOf(const PreparedExport::Output& output)
{
    QStringList files;
    if (QFileInfo(output.planned.path).isFile())
        files.append(output.planned.path);
    if (output.file)
        files += output.file->earlierSidecars();
    return files;
}

} // namespace

PreparedExport::PreparedExport(const Format& format, ExportSelection selection, SettingsValue settings)
    : verify(selection.verify)
    , m_format(format)
    , m_selection(std::move(selection))
    , m_settings(std::move(settings))
{
    std::vector<PlannedFile> files = m_format.files(m_selection, m_settings);
    FreePaths free(m_selection.keepEarlier ? files : std::vector<PlannedFile>());
    for (PlannedFile& file : files) {
        Output output;
        output.planned = std::move(file);
        const std::vector<const ModelObject*> objects = soundObjects(output);
        const std::vector<FailedObject> unsound = output.failedObjects;
        prepare(output, objects);
        if (m_selection.keepEarlier && !earlierFilesOf(output).isEmpty()) {
            // The same once more, under a name beside which nothing stands.
            if (output.planned.renamedFrom.isEmpty())
                output.planned.renamedFrom = QFileInfo(output.planned.path).fileName();
            output.planned.path = free.take(output.planned.path);
            output.error.clear();
            output.failedObjects = unsound;
            prepare(output, objects);
        }
        m_outputs.push_back(std::move(output));
    }
}

void PreparedExport::prepare(Output& output, std::vector<const ModelObject*> objects) const
{
    for (;;) {
        output.file.reset();
        if (objects.empty() && !output.failedObjects.empty()) {
            const FailedObject& first = output.failedObjects.front();
            output.error = QStringLiteral("none of its objects could be written; %1: %2").arg(first.name, first.reason);
            return;
        }
        Findings found;
        try {
            PlannedFile file{output.planned.path, objects, output.planned.renamedFrom};
            output.file = m_format.prepare(file, m_selection, m_settings, found);
            requireSourcesStay(*output.file, m_selection.sources);
            if (!file.renamedFrom.isEmpty())
                found.note(finding::renamedFile, file.renamedFrom, 1, QFileInfo(file.path).fileName());
            output.findings = std::move(found);
            return;
        } catch (const ObjectError& error) {
            output.failedObjects.push_back({error.object()->name, error.reason(), error.object()->id});
            remove(objects, *error.object());
        } catch (const ExportError& error) {
            output.file.reset();
            output.error = error.reason();
            return;
        } catch (const std::exception& error) {
            output.error = QString::fromUtf8(error.what());
            return;
        }
    }
}

QStringList PreparedExport::earlierFiles() const
{
    QStringList files;
    for (const Output& output : m_outputs) {
        if (output.wanted && output.file)
            files += earlierFilesOf(output);
    }
    return files;
}

void PreparedExport::leaveOut(Output& output, const ModelObject& object, const QString& reason) const
{
    std::vector<const ModelObject*> objects = output.file->file().objects;
    output.failedObjects.push_back({object.name, reason, object.id});
    remove(objects, object);
    prepare(output, std::move(objects));
}

void requirePositions(const PlannedFile& file)
{
    if (std::all_of(file.objects.begin(), file.objects.end(),
                    [](const ModelObject* object) { return object->vertexCount() == 0; }))
        throw ExportError(
            file.path,
            QStringLiteral("nothing of %1 can be written: it has no positions").arg(file.objects.front()->name),
            QStringLiteral("choose an object that has"));
}

} // namespace kpFormats
