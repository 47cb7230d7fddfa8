// SPDX-License-Identifier: MIT
#include "formats/irap/IrapPointsFormat.h"

#include "export/CommonSettings.h"
#include "export/TargetPath.h"
#include "formats/irap/IrapPointsFile.h"

#include <QFileInfo>

#include <algorithm>

namespace kpFormats
{

namespace
{

bool isLine(const ModelObject* object)
{
    return !object->parts.empty();
}

} // namespace

FormatInfo IrapPointsFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("irappoints");
    info.displayName = QStringLiteral("Irap points and polygons");
    info.fileFormatName = QStringLiteral("Irap points");
    info.defaultExtension = QStringLiteral("pol");
    info.patterns = QStringLiteral("*.poi *.pol");
    info.types = {ObjectType::Pins,   ObjectType::Polygons, ObjectType::Polylines,   ObjectType::Posts,
                  ObjectType::Labels, ObjectType::Wells,    ObjectType::VertexClouds};
    info.supportsAttributes = false;
    return info;
}

SettingsTable IrapPointsFormat::settings() const
{
    using S = IrapPointsExportSettings;
    SettingsTable table;
    addGrouping(table, &S::grouping);
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of coordinates; -1 for as many as they need"));
    table.addChoice("flatObjects", &S::flatObjects, tr("Objects without heights"),
                    {{QStringLiteral("leaveOut"), tr("leave out")}, {QStringLiteral("zero"), tr("at height 0")}},
                    tr("objects without any height are left out or written at height 0"));
    return table;
}

std::vector<PlannedFile> IrapPointsFormat::files(const ExportSelection& selection, const SettingsValue& values) const
{
    const auto& settings = values.as<IrapPointsExportSettings>();
    std::vector<PlannedFile> files;
    const bool stream = TargetPath(selection.path).isStream();
    const QFileInfo target(selection.path);
    const bool named = stream || (!target.isDir() && !target.suffix().isEmpty());
    for (PlannedFile& planned : planFiles(selection, settings.grouping, info().defaultExtension, settings.filePrefix)) {
        PlannedFile lines = planned;
        PlannedFile points = planned;
        const auto split = std::stable_partition(planned.objects.begin(), planned.objects.end(), isLine);
        lines.objects.assign(planned.objects.begin(), split);
        points.objects.assign(split, planned.objects.end());
        const bool both = !lines.objects.empty() && !points.objects.empty();
        // A file of either kind keeps the extension that it was given.
        if ((both && !stream) || !named) {
            const QString stem = planned.path.left(planned.path.size() - QFileInfo(planned.path).suffix().size());
            lines.path = stem + QStringLiteral("pol");
            points.path = stem + QStringLiteral("poi");
        }
        if (!lines.objects.empty())
            files.push_back(lines);
        if (!points.objects.empty())
            files.push_back(points);
    }
    return files;
}

std::unique_ptr<PreparedFile> IrapPointsFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                        const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<IrapPointsFile>(file, selection, settings.as<IrapPointsExportSettings>(), findings);
}

} // namespace kpFormats
