// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfText.h"

#include <array>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr int longestText = 255;
constexpr int longestLayer = 31;

/// The text with what is not ASCII as \U+XXXX, which has room for the basic plane of Unicode only.
std::string encoded(const QString& text)
{
    std::string result;
    for (const QChar character : text) {
        if (character.unicode() < 0x80)
            result += character.toLatin1();
        else
            result +=
                QStringLiteral("\\U+%1").arg(character.unicode(), 4, 16, QLatin1Char('0')).toUpper().toStdString();
    }
    return result;
}

bool isControl(QChar character)
{
    return character.unicode() < 0x20 || (character.unicode() >= 0x7f && character.unicode() < 0xa0)
           || character.unicode() == 0x2028 || character.unicode() == 0x2029;
}

/// Cyrillic small letters from U+0430 on.
constexpr const char* cyrillic[] = {"a",  "b",  "v",  "g",    "d", "e", "zh", "z", "i",  "y", "k",
                                    "l",  "m",  "n",  "o",    "p", "r", "s",  "t", "u",  "f", "kh",
                                    "ts", "ch", "sh", "shch", "",  "y", "",   "e", "yu", "ya"};

/// A character spelled in ASCII.
QString spelled(QChar character)
{
    const QChar small = character.toLower();
    if (small.unicode() >= 0x430 && small.unicode() <= 0x44f) {
        QString letters = QString::fromLatin1(cyrillic[small.unicode() - 0x430]);
        if (small != character && !letters.isEmpty())
            letters[0] = letters[0].toUpper();
        return letters;
    }
    QString ascii;
    for (const QChar part : QString(character).normalized(QString::NormalizationForm_KD)) {
        if (part.category() == QChar::Mark_NonSpacing)
            continue;
        if (part.unicode() >= 0x80)
            return QStringLiteral("U%1").arg(QString::number(character.unicode(), 16).toUpper());
        ascii += part;
    }
    return ascii;
}

/// The brightness, of 255, of each pair of shades of a hue.
constexpr int shades[] = {255, 165, 127, 76, 38};

/// A colour's share in a hue of the wheel: 0 to 60, where its own third begins after \a hue degrees.
int shareOf(int hue)
{
    const int angle = hue % 360;
    if (angle < 60)
        return angle;
    if (angle <= 180)
        return 60;
    return angle < 240 ? 240 - angle : 0;
}

QRgb wheelColour(int index)
{
    const int hue = (index / 10 - 1) * 15;
    const int full = shades[(index % 10) / 2];
    const bool pale = index % 2 != 0;
    const auto component = [&](int offset) {
        const int value = full * shareOf(hue + offset) / 60;
        return pale ? (value + full) / 2 : value;
    };
    return qRgb(component(120), component(0), component(240));
}

const std::array<QRgb, 256>& palette()
{
    static const std::array<QRgb, 256> colours = [] {
        std::array<QRgb, 256> made{qRgb(0, 0, 0),       qRgb(255, 0, 0),    qRgb(255, 255, 0), qRgb(0, 255, 0),
                                   qRgb(0, 255, 255),   qRgb(0, 0, 255),    qRgb(255, 0, 255), qRgb(255, 255, 255),
                                   qRgb(128, 128, 128), qRgb(192, 192, 192)};
        for (int index = 10; index < 250; ++index)
            made[static_cast<std::size_t>(index)] = wheelColour(index);
        const int greys[] = {51, 80, 105, 130, 190, 255};
        for (int grey = 0; grey < 6; ++grey)
            made[static_cast<std::size_t>(250 + grey)] = qRgb(greys[grey], greys[grey], greys[grey]);
        return made;
    }();
    return colours;
}

} // namespace

std::string dxfText(const QString& text, bool& changed)
{
    QString line;
    for (int index = 0; index < text.size(); ++index) {
        const QChar character = text[index];
        if (character.isSurrogate()) {
            line += QLatin1Char('?');
            index += character.isHighSurrogate() && index + 1 < text.size() ? 1 : 0;
        } else if (isControl(character)) {
            line += QLatin1Char(' ');
        } else {
            line += character;
            continue;
        }
        changed = true;
    }
    // What looks like an encoded character is none.
    if (line.contains(QLatin1String("\\U+"))) {
        line.replace(QLatin1String("\\U+"), QLatin1String("/U+"));
        changed = true;
    }
    if (line.size() > longestText) {
        line.truncate(longestText);
        changed = true;
    }
    return encoded(line);
}

QString DxfLayerNames::legal(const QString& name) const
{
    static const QString illegal = QStringLiteral("<>/\\\":;?*|=,'`");
    QString result;
    for (const QChar character : name) {
        if (character.isHighSurrogate())
            continue;
        if (character.isLowSurrogate() || isControl(character) || illegal.contains(character))
            result += QLatin1Char('_');
        else if (character.unicode() < 0x80 || m_unicode)
            result += character;
        else
            result += spelled(character);
    }
    result = result.left(longestLayer).trimmed();
    return result.isEmpty() ? QStringLiteral("unnamed") : result;
}

std::string DxfLayerNames::layer(const QString& name)
{
    if (name.isEmpty())
        return "0";
    const auto known = m_shown.constFind(name);
    if (known != m_shown.constEnd())
        return encoded(*known);
    const QString base = legal(name);
    QString unique = base;
    for (int number = 2; m_taken.contains(unique.toCaseFolded()); ++number) {
        const QString ending = QStringLiteral("_%1").arg(number);
        unique = base.left(longestLayer - ending.size()) + ending;
    }
    m_taken.insert(unique.toCaseFolded());
    m_shown.insert(name, unique);
    return encoded(unique);
}

int nearestColourIndex(const QColor& colour)
{
    if (!colour.isValid() || colour.rgb() == qRgb(0, 0, 0) || colour.rgb() == qRgb(255, 255, 255))
        return 7;
    int best = 7;
    int least = std::numeric_limits<int>::max();
    // Readers show the greys from 250 on differently.
    for (int index = 1; index < 250; ++index) {
        const QRgb candidate = palette()[static_cast<std::size_t>(index)];
        const int red = qRed(candidate) - colour.red();
        const int green = qGreen(candidate) - colour.green();
        const int blue = qBlue(candidate) - colour.blue();
        if (red * red + green * green + blue * blue >= least)
            continue;
        best = index;
        least = red * red + green * green + blue * blue;
    }
    return best;
}

QColor indexedColour(int index)
{
    return QColor(palette()[static_cast<std::size_t>(index & 0xff)]);
}

} // namespace kpFormats
