// SPDX-License-Identifier: MIT
#include "formats/ogr/FieldNames.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace kpFormats
{

namespace
{

bool isPlain(QChar character)
{
    return character.isLetterOrNumber() || character.isSurrogate() || character.isMark()
           || character == QLatin1Char('_');
}

bool isAsciiPlain(QChar character)
{
    return character.unicode() < 0x80 && isPlain(character);
}

/// Letters that readers of XML take in the name of an element, of the fourth edition too.
bool isXmlLetter(QChar character)
{
    struct Range
    {
        ushort first;
        ushort last;
    };
    constexpr Range ranges[] = {{'A', 'Z'},     {'_', '_'},       {'a', 'z'},       {0xc0, 0xd6},     {0xd8, 0xf6},
                                {0xf8, 0x131},  {0x134, 0x13e},   {0x141, 0x148},   {0x14a, 0x17e},   {0x38e, 0x3a1},
                                {0x3a3, 0x3ce}, {0x401, 0x40c},   {0x40e, 0x44f},   {0x451, 0x45c},   {0x5d0, 0x5ea},
                                {0x641, 0x64a}, {0x3041, 0x3094}, {0x30a1, 0x30fa}, {0x4e00, 0x9fa5}, {0xac00, 0xd7a3}};
    const ushort code = character.unicode();
    return character.isLetter() == (code != '_')
           && std::any_of(std::begin(ranges), std::end(ranges),
                          [code](Range range) { return code >= range.first && code <= range.last; });
}

/// \a name as that of an element.
QString inXml(const QString& name)
{
    QString made;
    for (const QChar character : name) {
        const bool digit = character >= QLatin1Char('0') && character <= QLatin1Char('9');
        if (digit && made.isEmpty())
            made += QLatin1Char('_');
        made += digit || isXmlLetter(character) ? character : QChar(QLatin1Char('_'));
    }
    return made;
}

/// Letters that no accent explains, in ASCII; upper case where all of them begin with one.
QString inAscii(QChar letter)
{
    static const QHash<QChar, QString> letters = [] {
        QHash<QChar, QString> made;
        const QString from = QString::fromUtf8("абвгдежзийклмнопрстуфхцчшщъыьэюяѐёђѓєѕіїјљњћќџґ"
                                               "αβγδεζηθικλμνξοπρσςτυφχψωßæœøđðłþıħŋ");
        const QStringList to =
            QStringLiteral("a b v g d e zh z i y k l m n o p r s t u f kh ts ch sh shch  y  e yu ya e yo "
                           "dj gj ye dz i yi j lj nj c kj dz g "
                           "a b g d e z i th i k l m n x o p r s s t y f ch ps o "
                           "ss ae oe o d d l th i h ng")
                .split(QLatin1Char(' '));
        for (int index = 0; index < from.size(); ++index)
            made.insert(from[index], to[index]);
        return made;
    }();
    QString text = letters.value(letter.toLower(), QStringLiteral("_"));
    if (letter.isUpper() && !text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

/// \a name with the characters that the format takes.
QString allowed(const QString& name, const FieldNameRules& rules)
{
    if (rules.xml)
        return inXml(name);
    if (!rules.ascii && !rules.plain)
        return name;
    QString made;
    for (const QChar character : rules.ascii ? name.normalized(QString::NormalizationForm_KD) : name) {
        if (rules.ascii && character.isMark())
            continue;
        if (rules.ascii ? isAsciiPlain(character) : isPlain(character))
            made += character;
        else if (rules.ascii && character.isLetter())
            made += inAscii(character);
        else
            made += QLatin1Char('_');
    }
    return made;
}

} // namespace

QString cutToBytes(const QString& text, int mostBytes)
{
    if (mostBytes <= 0 || text.size() * 3 <= mostBytes)
        return text;
    int bytes = 0;
    for (int index = 0; index < text.size(); ++index) {
        const bool pair = text[index].isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
        const ushort code = text[index].unicode();
        bytes += pair ? 4 : code < 0x80 ? 1 : code < 0x800 ? 2 : 3;
        if (bytes > mostBytes)
            return text.left(index);
        if (pair)
            ++index;
    }
    return text;
}

QStringList fieldNames(const QStringList& names, const FieldNameRules& rules)
{
    const auto folded = [&rules](const QString& name) { return rules.caseMatters ? name : name.toCaseFolded(); };
    QSet<QString> taken;
    for (const QString& name : rules.reserved)
        taken.insert(folded(name));
    QStringList made;
    QStringList wanted;
    // Names that fit come first, so that none has to give way to another that was cut.
    for (const QString& name : names) {
        const QString fitting = cutToBytes(allowed(name, rules), rules.mostBytes);
        wanted.append(fitting.isEmpty() ? QStringLiteral("field") : fitting);
        const bool stays = fitting == name && !name.isEmpty() && !taken.contains(folded(name));
        made.append(stays ? name : QString());
        if (stays)
            taken.insert(folded(name));
    }
    QHash<QString, int> numbers;
    for (int index = 0; index < made.size(); ++index) {
        if (!made[index].isEmpty())
            continue;
        const QString& base = wanted[index];
        QString name = base;
        int& number = numbers[folded(base)];
        while (taken.contains(folded(name))) {
            const QString tail = QStringLiteral("_%1").arg(++number);
            name = cutToBytes(base, rules.mostBytes > 0 ? rules.mostBytes - tail.size() : 0) + tail;
        }
        taken.insert(folded(name));
        made[index] = name;
    }
    return made;
}

} // namespace kpFormats
