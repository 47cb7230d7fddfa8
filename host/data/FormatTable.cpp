// SPDX-License-Identifier: MIT
// The plain table of a .fmt: one field a line, NAME TYPE START END DECIMALS.
#include "host/data/FormatFile.h"
#include "host/data/FormatFileText.h"

#include <QRegularExpression>
#include <QStringList>

#include <memory>

std::unique_ptr<FormatFile> parsedLandmark(const QByteArray& content);

namespace
{

constexpr int entriesOfLine = 5;
constexpr int lastColumn = 1000000;
constexpr int mostDecimals = 17;

struct TypeCode
{
    const char* name;
    int code;
};
// The fields that are not attributes.
constexpr TypeCode typeCodes[] = {{"X", -6}, {"Y", -2}, {"Z", -3}, {"i", -4}, {"j", -5}};

/// The entries of a line: words, or texts in quotes in which "" is one quote.
QStringList entriesOf(const QString& line, int number)
{
    static const QRegularExpression entry(
        QStringLiteral("\\G[ \\t]*(?:\"((?:[^\"]|\"\")*)\"|([^ \\t\"]+))(?=[ \\t]|$)"));
    QStringList entries;
    int position = 0;
    while (position < line.size()) {
        const QRegularExpressionMatch match = entry.match(line, position);
        if (!match.hasMatch()) {
            if (line.midRef(position).trimmed().isEmpty())
                break;
            throw FormatFileError(number, QStringLiteral("a quote is out of place"));
        }
        entries.append(match.capturedStart(1) >= 0
                           ? match.captured(1).replace(QLatin1String("\"\""), QLatin1String("\""))
                           : match.captured(2));
        position = match.capturedEnd();
    }
    return entries;
}

int numberIn(const QString& text, int most, int line, const char* column)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < 0 || number > most)
        throw FormatFileError(line, QStringLiteral("%1 \"%2\" is not a whole number from 0 to %3")
                                        .arg(QLatin1String(column), text.left(40))
                                        .arg(most));
    return number;
}

int typeCodeOf(const QString& name)
{
    for (const TypeCode& type : typeCodes) {
        if (name == QLatin1String(type.name))
            return type.code;
    }
    return 0;
}

impAttribute attributeOf(const QStringList& entries, int line)
{
    if (entries.size() != entriesOfLine)
        throw FormatFileError(line,
                              QStringLiteral("%1 entries instead of NAME TYPE START END DECIMALS").arg(entries.size()));
    impAttribute attribute;
    attribute.name = entries[0].toStdString();
    attribute.type = entries[1].toStdString();
    if (attribute.name.empty())
        throw FormatFileError(line, QStringLiteral("the field has no name"));
    if (entries[1] != QLatin1String("int") && entries[1] != QLatin1String("double")
        && entries[1] != QLatin1String("string"))
        throw FormatFileError(line,
                              QStringLiteral("type \"%1\" is none of int, double, string").arg(entries[1].left(40)));
    attribute.start = numberIn(entries[2], lastColumn, line, "start");
    attribute.end = numberIn(entries[3], lastColumn, line, "end");
    attribute.precision = numberIn(entries[4], mostDecimals, line, "decimals");
    if (attribute.end < attribute.start)
        throw FormatFileError(line, QStringLiteral("the field ends before it starts"));
    attribute.typeId = typeCodeOf(entries[0]);
    return attribute;
}

} // namespace

std::unique_ptr<FormatFile> parsedLandmark(const QByteArray& content)
{
    auto file = std::make_unique<FormatFile>();
    int line = 0;
    for (const QByteArray& bytes : content.split('\n')) {
        ++line;
        const QString text = QString::fromUtf8(bytes).trimmed();
        if (text.isEmpty() || text.startsWith(QLatin1Char('#')))
            continue;
        impAttribute attribute = attributeOf(entriesOf(text, line), line);
        attribute.order = file->size();
        if (attribute.end > 0)
            file->type() = FormatFile::ColumnBased;
        FormatFile::Field field;
        field.setAttribute(attribute);
        file->addField(field);
    }
    if (file->size() == 0)
        throw FormatFileError(QStringLiteral("there is no field in the file"));
    return file;
}
