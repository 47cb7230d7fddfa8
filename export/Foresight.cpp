// SPDX-License-Identifier: MIT
#include "export/Foresight.h"

#include "export/ObjectError.h"
#include "model/ObjectCheck.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

void leaveOut(Foresight& foresight, const ModelObject& object, const QString& reason)
{
    std::vector<const ModelObject*>& objects = foresight.file.objects;
    foresight.failedObjects.push_back({object.name, reason});
    objects.erase(std::remove(objects.begin(), objects.end(), &object), objects.end());
}

void leaveOutUnsound(Foresight& foresight)
{
    const std::vector<const ModelObject*> objects = foresight.file.objects;
    for (const ModelObject* object : objects) {
        const QString fault = faultOf(*object);
        if (!fault.isEmpty())
            leaveOut(foresight, *object, QStringLiteral("%1 (load it again or repair its source)").arg(fault));
    }
}

/// False when an object had to be left out, so that the rest is to be looked at again.
bool askFormat(Foresight& foresight, const ExportFormat& format, const ExportSelection& selection, Findings& losses)
{
    try {
        Findings found;
        format.foresee(foresight.file, selection, found);
        losses.add(found);
    } catch (const ObjectError& error) {
        leaveOut(foresight, *error.object(), error.reason());
        return false;
    } catch (const ExportError& error) {
        foresight.error = error.reason();
    } catch (const std::exception& error) {
        foresight.error = QString::fromUtf8(error.what());
    }
    return true;
}

} // namespace

void requirePositions(const PlannedFile& file)
{
    if (std::all_of(file.objects.begin(), file.objects.end(),
                    [](const ModelObject* object) { return object->vertexCount() == 0; }))
        throw ExportError(
            file.path,
            QStringLiteral("nothing of %1 can be written: it has no positions").arg(file.objects.front()->name),
            QStringLiteral("choose an object that has"));
}

QString noneLeftError(const std::vector<FailedObject>& failed)
{
    return QStringLiteral("none of its objects could be written; %1: %2")
        .arg(failed.front().name, failed.front().reason);
}

Foresight foresee(const ExportFormat& format, const PlannedFile& file, const ExportSelection& selection,
                  Findings& losses)
{
    Foresight foresight{file, {}, {}};
    leaveOutUnsound(foresight);
    do {
        if (foresight.file.objects.empty() && !foresight.failedObjects.empty()) {
            foresight.error = noneLeftError(foresight.failedObjects);
            return foresight;
        }
    } while (!askFormat(foresight, format, selection, losses));
    return foresight;
}

} // namespace kpFormats
