// SPDX-License-Identifier: MIT
#include "window/WizardRequest.h"

#include "export/AttributeNames.h"
#include "pages/HostSaver.h"
#include "window/HostContext.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QStandardPaths>

#include <algorithm>

namespace refhost
{

namespace
{

QStringList chosenObjects(const HostContext& context, const HostSaver& saver)
{
    const std::vector<ObjectType> types = saver.format().info().types;
    qint64 exportable = 0;
    QHash<QString, int> names;
    for (const ModelObject& object : context.model.objects()) {
        exportable += std::find(types.begin(), types.end(), object.type) != types.end() ? 1 : 0;
        ++names[object.name];
    }
    const std::vector<const ModelObject*>& chosen = saver.selection().objects;
    if (static_cast<qint64>(chosen.size()) == exportable)
        return {};
    QStringList objects;
    for (const ModelObject* object : chosen) {
        const bool plain = names.value(object->name) == 1 && !object->name.startsWith(QLatin1String("id:"))
                           && !object->name.contains(QLatin1Char('*')) && !object->name.contains(QLatin1Char('?'));
        objects.append(plain ? object->name : QStringLiteral("id:%1").arg(object->id));
    }
    return objects;
}

/// The layout of the export in a file of its own for each content, so that a command that was copied stays true.
QString keptLayout(ExportFormat& format)
{
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/layouts");
    const QString draft = folder + QStringLiteral("/draft.klf");
    if (!format.info().takesLayout || !QDir().mkpath(folder) || !format.saveLayout(draft))
        return {};
    QFile file(draft);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray mark = QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256).toHex().left(16);
    file.close();
    const QString path = folder + QLatin1Char('/') + QString::fromLatin1(mark) + QStringLiteral(".klf");
    if (!QFile::exists(path) && !file.rename(path))
        return {};
    QFile::remove(draft);
    return path;
}

} // namespace

ExportRequest wizardRequest(const HostContext& context, const HostSaver& saver)
{
    ExportRequest request;
    request.models = context.modelPaths;
    request.format = saver.format().info().key;
    request.output = saver.selection().path;
    request.objects = chosenObjects(context, saver);
    request.layout = keptLayout(saver.format());
    if (request.layout.isEmpty()) {
        const ExportSelection& selection = saver.selection();
        request.attributes = selection.attributes.value_or(QStringList());
        request.noAttributes =
            selection.attributes && selection.attributes->isEmpty() && !attributeNames(selection.objects).isEmpty();
    }
    request.overwrite = true;
    request.verify = saver.selection().verify;
    for (const auto& fresh : makeFormats()) {
        if (fresh->info().key != request.format)
            continue;
        const SettingsMap defaults = fresh->settings();
        const SettingsMap current = saver.format().settings();
        for (const Setting& setting : current.settings()) {
            const Setting* usual = defaults.find(setting.key);
            if (!usual || usual->get() != setting.get())
                request.settings.append({setting.key, setting.get()});
        }
    }
    return request;
}

} // namespace refhost
