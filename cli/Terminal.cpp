// SPDX-License-Identifier: MIT
#include "cli/Terminal.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace refhost
{

namespace
{

/// The first error of standard output.
int outputError = 0;

/// Letters of the control characters, and of those that set the direction of writing.
bool isObeyed(QChar character)
{
    const ushort code = character.unicode();
    return code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0x061c || code == 0x200e || code == 0x200f
           || (code >= 0x2028 && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

QString escaped(QChar character, bool json)
{
    const ushort code = character.unicode();
    const bool wide = json || code > 0xff;
    return QStringLiteral("\\%1%2").arg(QLatin1Char(wide ? 'u' : 'x')).arg(code, wide ? 4 : 2, 16, QLatin1Char('0'));
}

void put(const QByteArray& bytes)
{
    errno = 0;
    const bool written = std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout)
                         == static_cast<std::size_t>(bytes.size());
    if (!written && outputError == 0)
        outputError = errno;
}

void say(const char* kind, const QString& text)
{
    std::fprintf(stderr, "kpexport: %s: %s\n", kind, shownText(text).toUtf8().constData());
}

} // namespace

QString shownText(const QString& text)
{
    QString shown;
    for (const QChar character : text)
        shown += isObeyed(character) ? escaped(character, false) : QString(character);
    return shown;
}

void printError(const QString& text)
{
    say("error", text);
}

void printNote(const QString& text)
{
    say("note", text);
}

void printFields(const QStringList& fields)
{
    QStringList shown;
    for (const QString& field : fields)
        shown.append(shownText(field));
    put(shown.join(QLatin1Char('\t')).toUtf8() + '\n');
}

void printText(const QString& text)
{
    put(text.toUtf8());
}

void printJson(const QJsonDocument& document)
{
    // Characters below the blank are written as \u already, and the line ends between the members are JSON's own.
    QString shown;
    for (const QChar character : QString::fromUtf8(document.toJson().trimmed()))
        shown += character.unicode() >= 0x20 && isObeyed(character) ? escaped(character, true) : QString(character);
    put(shown.toUtf8() + '\n');
}

bool finishOutput()
{
    errno = 0;
    if (std::fflush(stdout) != 0 && outputError == 0)
        outputError = errno;
    if (outputError == 0 || outputError == EPIPE)
        return true;
    printError(QStringLiteral("standard output: it could not be written: %1 (give it another place)")
                   .arg(QString::fromLocal8Bit(std::strerror(outputError))));
    return false;
}

} // namespace refhost
