// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadFormat.h"

#include "export/CommonSettings.h"
#include "formats/gocad/GocadFile.h"
#include "formats/gocad/GocadWell.h"
#include "formats/gocad/GocadWriter.h"

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
        const QString own = isGocadWell(*object, settings)
                                ? QStringLiteral("wl")
                                : extensions[static_cast<int>(gocadKindOf(*object, settings))];
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

SettingsTable GocadFormat::settings() const
{
    using S = GocadExportSettings;
    SettingsTable table;
    addGrouping(table, &S::grouping);
    addFilePrefix(table, &S::filePrefix);
    table.addBoolean("header", &S::header, tr("Header"), tr("write each object's name and colour"));
    addElevation(table, &S::zIsElevation);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of coordinates; -1 for as many as they need"));
    table.addReal("nullValue", &S::nullValue, -1e38, 1e38, tr("Null value"), tr("stands for a missing property value"));
    table.addChoice(
        "gridsAs", &S::gridsAs, tr("Grids as"),
        {{QStringLiteral("surface"), tr("triangulated surfaces")}, {QStringLiteral("points"), tr("vertex sets")}},
        tr("grid surfaces as triangulated surfaces or as vertex sets"));
    table.addChoice("wellsAs", &S::wellsAs, tr("Wells as"),
                    {{QStringLiteral("lines"), tr("curves")}, {QStringLiteral("wells"), tr("wells")}},
                    tr("well paths as lines (PLine) or as wells with their depths (Well)"));
    return table;
}

std::vector<PlannedFile> GocadFormat::files(const ExportSelection& selection, const SettingsValue& values) const
{
    const auto& settings = values.as<GocadExportSettings>();
    const QString usual = info().defaultExtension;
    std::vector<PlannedFile> files = planFiles(selection, settings.grouping, usual, settings.filePrefix);
    const QFileInfo chosen(selection.path);
    const bool device = chosen.exists() && !chosen.isFile() && !chosen.isDir();
    if (chosen.suffix().isEmpty() && !device) {
        for (PlannedFile& file : files) {
            if (file.path.endsWith(QLatin1Char('.') + usual))
                file.path = file.path.left(file.path.size() - usual.size()) + extensionOf(file.objects, settings);
        }
    }
    return files;
}

std::unique_ptr<PreparedFile> GocadFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                   const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<GocadFile>(file, selection, settings.as<GocadExportSettings>(), findings);
}

} // namespace kpFormats
