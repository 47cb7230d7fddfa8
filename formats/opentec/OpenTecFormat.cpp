// SPDX-License-Identifier: MIT
#include "formats/opentec/OpenTecFormat.h"

#include "export/CommonSettings.h"
#include "formats/opentec/OpenTecFile.h"
#include "formats/opentec/SectionNames.h"

namespace kpFormats
{

FormatInfo OpenTecFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("opentec");
    info.displayName = QStringLiteral("OpenTecLink (cross-sections)");
    info.fileFormatName = QStringLiteral("OpenTecLink");
    info.defaultExtension = QStringLiteral("otl");
    info.patterns = QStringLiteral("*.otl *.txt");
    info.types = {ObjectType::CrossSections};
    info.supportsAttributes = false;
    return info;
}

SettingsTable OpenTecFormat::settings() const
{
    using S = OpenTecExportSettings;
    SettingsTable table;
    table.addText("sections", &S::sections, tr("Sections"),
                  tr("names of the sections to write, separated by commas; empty writes all"));
    table.addText("traceLine", &S::traceLine, tr("Trace line"),
                  tr("section whose trace gives the positions on the map; empty is each its own"));
    table.addReal("age", &S::age, -1e6, 1e6, tr("Age"), tr("age of the sections"));
    table.addInteger("decimals", &S::decimals, 0, 17, tr("Decimals"), tr("decimals of every number"));
    addLengthUnit(table, &S::lengthUnit, tr("unit of the coordinates; the format is made for m"));
    return table;
}

std::vector<PlannedFile> OpenTecFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    const QStringList names = sectionNamesIn(settings.as<OpenTecExportSettings>().sections, selection);
    ExportSelection sections = selection;
    sections.objects.clear();
    for (const ModelObject* object : selection.objects) {
        if (names.isEmpty() || names.contains(object->name))
            sections.objects.push_back(object);
    }
    // A file holds one section.
    return planFiles(sections, sections.objects.size() > 1 ? FileGrouping::Object : FileGrouping::Single,
                     QStringLiteral("otl"));
}

std::unique_ptr<PreparedFile> OpenTecFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                     const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<OpenTecFile>(file, selection, settings.as<OpenTecExportSettings>(), findings);
}

} // namespace kpFormats
