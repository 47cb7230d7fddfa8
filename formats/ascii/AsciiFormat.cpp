// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiFormat.h"

#include "export/CommonSettings.h"
#include "formats/ascii/AsciiFile.h"
#include "formats/ascii/AsciiLayoutFile.h"
#include "formats/ascii/AsciiOutput.h"
#include "spec/layout/FieldLayout.h"

namespace kpFormats
{

FormatInfo AsciiFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("ascii");
    info.displayName = QStringLiteral("ASCII (delimited or fixed columns)");
    info.fileFormatName = QStringLiteral("ASCII");
    info.defaultExtension = QStringLiteral("csv");
    info.patterns = QStringLiteral("*.csv *.txt *.dat *.xyz");
    info.takesLayout = true;
    info.types = positionedObjectTypes();
    return info;
}

SettingsTable AsciiFormat::settings() const
{
    using S = AsciiExportSettings;
    SettingsTable table;
    table.addChoice("mode", &S::mode, tr("Mode"),
                    {{QStringLiteral("separated"), tr("separated")}, {QStringLiteral("columns"), tr("fixed columns")}},
                    tr("values joined by a separator, or in fixed columns"));
    table.addChoice("separator", &S::separator, tr("Separator"),
                    {{QStringLiteral("blank"), tr("blank")},
                     {QStringLiteral("tab"), tr("tab")},
                     {QStringLiteral("comma"), tr("comma")},
                     {QStringLiteral("semicolon"), tr("semicolon")},
                     {QStringLiteral("custom"), tr("custom")}},
                    tr("what stands between values"));
    table.addText("customSeparator", &S::customSeparator, tr("Custom separator"), tr("text of the custom separator"));
    table.addChoice("quoting", &S::quoting, tr("Quoting"),
                    {{QStringLiteral("needed"), tr("where needed")},
                     {QStringLiteral("all"), tr("all texts")},
                     {QStringLiteral("none"), tr("none")}},
                    tr("which texts and names between separators stand in quotes"));
    table.addBoolean("header", &S::header, tr("Header"), tr("a first line with the names of the fields"));
    table.addChoice("preset", &S::preset, tr("Preset"),
                    {{QStringLiteral("none"), tr("None")},
                     {QStringLiteral("surfer"), QStringLiteral("Surfer XYZ")},
                     {QStringLiteral("gsplus"), QStringLiteral("GS+ XYZ")},
                     {QStringLiteral("arcview"), QStringLiteral("ArcView XYZ")}},
                    tr("header line of another program"));
    table.addInteger("decimals", &S::decimals, automaticDecimals, 17, tr("Decimals"),
                     tr("decimals of coordinates and real attributes; -1 for what each field needs"));
    table.addChoice("missingZ", &S::missingZ, tr("Missing z"),
                    {{QStringLiteral("blank"), tr("left blank")}, {QStringLiteral("null"), tr("null value")}},
                    tr("what stands for an unknown height"));
    table.addBoolean("writeNullValue", &S::writeNullValue, tr("Write null value"),
                     tr("write nullValue for missing numbers; else 0"));
    table.addText("nullValue", &S::nullValue, tr("Null value"), tr("text of a missing number"));
    table.addBoolean("lineBreaks", &S::lineBreaks, tr("Line breaks"),
                     tr("object name before and empty line after each object"));
    table.addBoolean("guardFormulas", &S::guardFormulas, tr("Guard formulas"),
                     tr("an apostrophe before texts that a spreadsheet would take for formulas, in separated values"));
    addElevation(table, &S::zIsElevation);
    addGrouping(table, &S::grouping);
    return table;
}

void AsciiFormat::loadLayout(const QString& path, SettingsValue& settings) const
{
    AsciiLayoutFile file = readAsciiLayout(path);
    for (const auto& setting : qAsConst(file.settings)) {
        try {
            settings.set(setting.first, setting.second);
        } catch (const SettingsError& error) {
            throw SettingsError(QStringLiteral("%1: \"settings\": %2").arg(path, QString::fromUtf8(error.what())));
        }
    }
    // The kind of layout is the file's type, whatever its settings say.
    auto& ascii = settings.as<AsciiExportSettings>();
    ascii.mode = file.mode;
    ascii.layout = std::move(file.layout);
}

void AsciiFormat::requireUsable(const SettingsValue& settings) const
{
    const QString fault = separatorFault(settings.as<AsciiExportSettings>());
    if (!fault.isEmpty())
        throw SettingsError(QStringLiteral("customSeparator: ") + fault);
}

QByteArray AsciiFormat::layoutBytes(const SettingsValue& settings) const
{
    return layoutFileBytes(settings);
}

void AsciiFormat::overrule(SettingsValue& settings, const QString& key, const QString& value) const
{
    settings.set(key, value);
    auto& ascii = settings.as<AsciiExportSettings>();
    if (ascii.layout && key == QLatin1String("decimals"))
        ascii.layout->decimals =
            ascii.decimals == automaticDecimals ? std::nullopt : std::optional<int>(ascii.decimals);
}

std::vector<PlannedFile> AsciiFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planFiles(selection, settings.as<AsciiExportSettings>().grouping, QStringLiteral("csv"));
}

std::unique_ptr<PreparedFile> AsciiFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                   const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<AsciiFile>(file, selection, settings.as<AsciiExportSettings>(), findings);
}

} // namespace kpFormats
