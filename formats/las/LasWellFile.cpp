// SPDX-License-Identifier: MIT
#include "formats/las/LasWellFile.h"

#include "export/BlockWriter.h"
#include "export/NumberColumns.h"
#include "formats/las/LasVerification.h"
#include "model/ProgressTicker.h"
#include "writers/FixedNumber.h"

#include <cmath>
#include <utility>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

std::string fixedText(double value, int decimals)
{
    std::string text;
    appendFixed(text, value, decimals);
    return text;
}

/// "MNEM.UNIT  VALUE : DESCRIPTION", in columns.
void appendLine(std::string& text, const QString& mnemonic, const QString& unit, const QString& value,
                const QString& description)
{
    text += QStringLiteral("%1 %2 : %3")
                .arg(mnemonic + QLatin1Char('.') + unit, -16)
                .arg(value, -24)
                .arg(description)
                .toStdString();
    text += '\n';
}

void writeHead(std::string& text, const LasTable& table)
{
    const LasCurve& depth = table.curves.front();
    const auto line = [&](const char* mnemonic, const QString& value, const char* description,
                          const QString& unit = {}) {
        appendLine(text, QLatin1String(mnemonic), unit, value, QLatin1String(description));
    };
    const auto depthText = [&](double value) { return QString::fromStdString(fixedText(value, depth.decimals)); };
    std::string nullText;
    appendShortest(nullText, table.nullValue);
    text += "~Version\n";
    line("VERS", QStringLiteral("2.0"), "CWLS log ASCII standard, version 2.0");
    line("WRAP", QStringLiteral("NO"), "one line per depth");
    text += "~Well\n";
    line("STRT", depthText(depth.values.front()), "first depth", depth.unit);
    line("STOP", depthText(depth.values.back()), "last depth", depth.unit);
    line("STEP", depthText(table.step), table.step == 0.0 ? "depths are not even" : "step", depth.unit);
    line("NULL", QString::fromStdString(nullText), "no value");
    line("COMP", {}, "company");
    line("WELL", table.well, "well");
    line("FLD", {}, "field");
    line("LOC", {}, "location");
    line("CTRY", {}, "country");
    line("SRVC", {}, "service company");
    line("DATE", {}, "date of the log");
    line("UWI", {}, "unique well identifier");
    text += "~Curve\n";
    for (const LasCurve& curve : table.curves)
        appendLine(text, curve.mnemonic, curve.unit, {}, curve.description);
    if (!table.parameters.empty())
        text += "~Parameter\n";
    for (const LasParameter& parameter : table.parameters)
        appendLine(text, parameter.mnemonic, parameter.unit, parameter.value, parameter.description);
}

} // namespace

LasWellFile::LasWellFile(PlannedFile planned, const ExportSelection& selected, LasExportSettings settings,
                         Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_unit(metreOrFoot(*file().objects.front(), m_settings.lengthUnit, QStringLiteral("LAS"), file().path))
    , m_table(lasTable(*file().objects.front(), selection(), m_settings, m_unit, file().path, findings))
{
    noteMissingAttributes(file().objects, selection(), findings);
    noteMetreOrFoot(*file().objects.front(), m_settings.lengthUnit, m_unit, QStringLiteral("LAS"), findings);
}

qint64 LasWellFile::write(const QString& path, Findings&, kpBase::AbstractProgress* progress)
{
    const std::size_t rows = m_table.curves.front().values.size();
    ProgressTicker loop(progress, static_cast<double>(rows));
    BlockWriter out(path, file().path);
    std::string& text = out.text();
    writeHead(text, m_table);
    text += "~ASCII\n";
    std::string nullText;
    appendShortest(nullText, m_table.nullValue);
    for (std::size_t row = 0; row < rows; ++row) {
        for (const LasCurve& curve : m_table.curves) {
            const double value = curve.values[row];
            std::string number = nullText;
            if (std::isfinite(value))
                number = fixedText(value, curve.decimals);
            constexpr std::size_t width = 12;
            text.append(number.size() < width ? width - number.size() : 0, ' ');
            text += ' ' + number;
        }
        text += '\n';
        out.check();
        if (!loop.next())
            return static_cast<qint64>(row);
    }
    out.close();
    return static_cast<qint64>(rows);
}

std::optional<Verification> LasWellFile::verify(const QString& path) const
{
    return verifyLas(*file().objects.front(), path, selection(), m_settings, m_unit);
}

} // namespace kpFormats
