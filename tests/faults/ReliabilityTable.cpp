// SPDX-License-Identifier: MIT
#include "tests/faults/ReliabilityTable.h"

#include "tests/support/FileContent.h"

#include <QStringList>
#include <QtTest>

namespace
{

constexpr int columns = 4;
const QString path = QStringLiteral(KP_SOURCE_DIR "/docs/reliability.md");

QString lineOf(const QStringList& key, const QSet<QString>& formats)
{
    QStringList names = formats.values();
    names.sort();
    return QStringLiteral("| %1 | %2 | %3 | %4 |")
        .arg(key[0], names.join(QStringLiteral(", ")), key[1], QLatin1Char('`') + key[2] + QLatin1Char('`'));
}

/// The test function that runs, with its program.
QString testOf(const QString& program)
{
    return program + QLatin1Char(' ') + QString::fromLatin1(QTest::currentTestFunction());
}

} // namespace

void ReliabilityTable::tries(const QString& format)
{
    m_tried[testOf(m_program)].insert(format);
}

void ReliabilityTable::note(const QString& format, const QString& fault, const QString& outcome)
{
    tries(format);
    m_noted.insert(testOf(m_program));
    m_rows[{fault, outcome, testOf(m_program)}].insert(format);
}

/// The documented rows, in which what was tried here stands as it came out here.
ReliabilityTable::Rows ReliabilityTable::merged(const Rows& documented) const
{
    Rows rows = m_rows;
    for (auto row = documented.cbegin(); row != documented.cend(); ++row) {
        const QString& test = row.key()[2];
        QSet<QString> others = row.value();
        if (m_noted.contains(test))
            others -= m_tried[test];
        if (!others.isEmpty())
            rows[row.key()] += others;
    }
    return rows;
}

QString ReliabilityTable::settle() const
{
    QStringList before;
    QStringList after;
    QStringList lines;
    Rows documented;
    for (const QString& line : QString::fromUtf8(contentOf(path)).split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1String("| "))) {
            (lines.isEmpty() ? before : after).append(line);
            continue;
        }
        lines.append(line);
        QStringList cells = line.mid(2, line.size() - 4).split(QStringLiteral(" | "));
        if (cells.size() != columns)
            return QStringLiteral("not a row of the table: ") + line;
        if (lines.size() > 1) {
            const QStringList formats = cells[1].split(QStringLiteral(", "));
            documented[{cells[0], cells[2], cells[3].remove(QLatin1Char('`'))}] = {formats.begin(), formats.end()};
        }
    }
    const Rows rows = merged(documented);
    if (qEnvironmentVariableIsSet("KP_WRITE_TABLE")) {
        // The first line behind the head is the rule under it.
        QStringList written{QStringLiteral("| tried | formats | what happened | test |"), after.takeFirst()};
        for (auto row = rows.cbegin(); row != rows.cend(); ++row)
            written.append(lineOf(row.key(), row.value()));
        writeFile(path, (before + written + after).join(QLatin1Char('\n')).toUtf8());
        return {};
    }
    QStringList differences;
    const QList<QStringList> keys = rows.keys() + documented.keys();
    for (const QStringList& key : QSet<QStringList>(keys.begin(), keys.end())) {
        if (rows.value(key) != documented.value(key))
            differences.append(lineOf(key, rows.value(key)));
    }
    return differences.isEmpty() ? QString()
                                 : QStringLiteral("docs/reliability.md says otherwise (set KP_WRITE_TABLE=1):\n")
                                       + differences.join(QLatin1Char('\n'));
}
