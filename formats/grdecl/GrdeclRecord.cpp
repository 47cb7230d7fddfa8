// SPDX-License-Identifier: MIT
#include "formats/grdecl/GrdeclRecord.h"

#include "writers/FixedNumber.h"

namespace kpFormats
{

namespace
{

// A reader stops at column 128.
constexpr std::size_t widestLine = 100;
constexpr int longestKeyword = 8;

} // namespace

GrdeclRecord::GrdeclRecord(BlockWriter& out, const std::string& keyword, Style style, int decimals)
    : m_out(out)
    , m_style(style)
    , m_decimals(decimals)
{
    m_out.text() += keyword + '\n';
}

void GrdeclRecord::writeRun()
{
    if (m_run == 0)
        return;
    m_word.clear();
    if (m_run > 1) {
        appendInteger(m_word, m_run);
        m_word += '*';
    }
    if (m_style == Style::Fixed) {
        kpBaseExport::appendFixed(m_word, m_value, m_decimals);
    } else {
        const std::size_t first = m_word.size();
        appendShortest(m_word, m_value);
        // A number of a real property stays one for a reader that looks at its text.
        if (m_style == Style::Real && m_word.find_first_of(".e", first) == std::string::npos)
            m_word += ".0";
    }
    std::string& text = m_out.text();
    if (m_column > 0 && m_column + 1 + m_word.size() > widestLine) {
        text += '\n';
        m_column = 0;
    }
    text += ' ';
    text += m_word;
    m_column += 1 + m_word.size();
    m_run = 0;
    m_out.check();
}

void GrdeclRecord::end()
{
    writeRun();
    m_out.text() += "\n/\n\n";
    m_out.check();
}

QString GrdeclNames::take(const QString& name)
{
    static const QStringList own{
        QStringLiteral("ACTNUM"),   QStringLiteral("ADD"),      QStringLiteral("BOX"),      QStringLiteral("COORD"),
        QStringLiteral("COORDSYS"), QStringLiteral("COPY"),     QStringLiteral("DIMENS"),   QStringLiteral("ECHO"),
        QStringLiteral("END"),      QStringLiteral("ENDBOX"),   QStringLiteral("EQUALS"),   QStringLiteral("FAULTS"),
        QStringLiteral("GDORIENT"), QStringLiteral("GRID"),     QStringLiteral("GRIDUNIT"), QStringLiteral("INCLUDE"),
        QStringLiteral("MAPAXES"),  QStringLiteral("MAPUNITS"), QStringLiteral("MULTIPLY"), QStringLiteral("NOECHO"),
        QStringLiteral("SPECGRID"), QStringLiteral("TITLE"),    QStringLiteral("ZCORN")};
    QString keyword = name.simplified().toUpper();
    for (QChar& character : keyword) {
        const char16_t code = character.unicode();
        if (!(code >= 'A' && code <= 'Z') && !(code >= '0' && code <= '9'))
            character = QLatin1Char('_');
    }
    if (keyword.isEmpty() || keyword[0] < QLatin1Char('A'))
        keyword.prepend(QLatin1Char('P'));
    if (keyword[0] == QLatin1Char('_'))
        keyword[0] = QLatin1Char('P');
    keyword.truncate(longestKeyword);
    QString result = keyword;
    for (int number = 2; m_taken.contains(result) || own.contains(result); ++number) {
        const QString ending = QString::number(number);
        result = keyword.left(longestKeyword - ending.size()) + ending;
    }
    m_taken.append(result);
    return result;
}

} // namespace kpFormats
