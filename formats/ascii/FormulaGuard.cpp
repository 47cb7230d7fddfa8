// SPDX-License-Identifier: MIT
#include "formats/ascii/FormulaGuard.h"

#include "formats/ascii/AsciiOutput.h"

namespace kpFormats
{

namespace
{

bool beginsFormula(QChar character)
{
    // Spreadsheets take the wide forms for the usual ones.
    static const QString beginnings = QString(QChar(0)) + QString::fromUtf8("=+-@\t\r＝＋－＠");
    return beginnings.contains(character);
}

} // namespace

FormulaGuard::FormulaGuard(const AsciiExportSettings& settings)
    : m_on(settings.guardFormulas && settings.mode == AsciiExportSettings::Mode::Separated)
    , m_separator(separatorText(settings))
{
}

QString FormulaGuard::guarded(const QString& text) const
{
    if (!m_on)
        return text;
    static const QString separators = QStringLiteral(",;\t|");
    static const QString skipped = QStringLiteral(" \"'");
    QString safe;
    safe.reserve(text.size());
    bool mayBegin = true;
    for (int index = 0; index < text.size(); ++index) {
        const QChar character = text[index];
        if (mayBegin && beginsFormula(character))
            safe += QLatin1Char('\'');
        safe += character;
        const bool ends =
            separators.contains(character) || (!m_separator.isEmpty() && text.leftRef(index + 1).endsWith(m_separator));
        mayBegin = ends || (mayBegin && skipped.contains(character));
    }
    return safe;
}

} // namespace kpFormats
