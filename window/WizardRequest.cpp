// SPDX-License-Identifier: MIT
#include "window/WizardRequest.h"

#include "cli/FormatChoice.h"
#include "export/AttributeNames.h"
#include "pages/FormatSaver.h"
#include "window/HostContext.h"

#include <QCryptographicHash>
#include <QDir>
#include <QHash>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace refhost
{

namespace
{

QStringList chosenObjects(const HostContext& context, const FormatSaver& saver)
{
    const std::vector<ObjectType> types = saver.setup().format->info().types;
    qint64 exportable = 0;
    QHash<QString, int> names;
    for (const ModelObject& object : context.model.objects()) {
        exportable += std::find(types.begin(), types.end(), object.type) != types.end() ? 1 : 0;
        ++names[object.name];
    }
    const std::vector<const ModelObject*>& chosen = saver.prepared()->selection().objects;
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
QString keptLayout(const FormatSetup& setup)
{
    const QByteArray layout = setup.format->layoutBytes(setup.settings);
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/layouts");
    if (layout.isEmpty() || !QDir().mkpath(folder))
        return {};
    const QByteArray mark = QCryptographicHash::hash(layout, QCryptographicHash::Sha256).toHex().left(16);
    const QString path = folder + QLatin1Char('/') + QString::fromLatin1(mark) + QStringLiteral(".klf");
    if (QFile::exists(path))
        return path;
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(layout) == layout.size() && file.commit() ? path : QString();
}

} // namespace

ExportRequest wizardRequest(const HostContext& context, const FormatSaver& saver)
{
    ExportRequest request;
    request.models = context.modelPaths;
    request.format = saver.setup().format->info().key;
    request.output = saver.prepared()->selection().path;
    request.objects = chosenObjects(context, saver);
    request.layout = keptLayout(saver.setup());
    if (request.layout.isEmpty()) {
        const ExportSelection& selection = saver.prepared()->selection();
        request.attributes = selection.attributes.value_or(QStringList());
        request.noAttributes =
            selection.attributes && selection.attributes->isEmpty() && !attributeNames(selection.objects).isEmpty();
    }
    request.keepBoth = saver.prepared()->selection().keepEarlier;
    request.overwrite = !request.keepBoth;
    request.force = !foreignExtension(saver.setup().format->info(), request.output).isEmpty();
    request.verify = saver.verifies();
    const SettingsValue& settings = saver.setup().settings;
    for (const Setting& setting : settings.settings()) {
        if (settings.get(setting) != settings.defaultOf(setting))
            request.settings.append({setting.key, settings.get(setting)});
    }
    return request;
}

} // namespace refhost
