// SPDX-License-Identifier: MIT
#include "readers/TextEncoding.h"

#include "readers/LoadError.h"

#include <QTextCodec>

#include <memory>

namespace kpFormats
{

namespace
{

/// The bytes as the codec reads them; null when some of them mean nothing to it.
QString decoded(QTextCodec& codec, const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    const QString text = codec.toUnicode(bytes.constData(), bytes.size(), &state);
    // Some codecs put the replacement character without counting it.
    const bool whole =
        state.invalidChars == 0 && state.remainingChars == 0 && !text.contains(QChar(QChar::ReplacementCharacter));
    return whole ? text : QString();
}

bool isUtf8(const QByteArray& bytes)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

int firstLineBeyondAscii(const QByteArray& bytes)
{
    int line = 1;
    for (const char character : bytes) {
        if (static_cast<unsigned char>(character) >= 0x80)
            return line;
        line += character == '\n' ? 1 : 0;
    }
    return line;
}

/// Cyrillic words are letters beyond ASCII from end to end; in Western words these stand alone among others.
const char* likelyEncoding(const QByteArray& bytes)
{
    int inWords = 0;
    int alone = 0;
    for (int index = 0; index < bytes.size(); ++index) {
        const auto isHigh = [&bytes](int at) {
            return at >= 0 && at < bytes.size() && static_cast<unsigned char>(bytes[at]) >= 0xA0;
        };
        if (isHigh(index))
            ++(isHigh(index - 1) || isHigh(index + 1) ? inWords : alone);
    }
    if (inWords > 3 * alone)
        return "windows-1251";
    return alone > 3 * inWords ? "windows-1252" : nullptr;
}

} // namespace

QByteArray toUtf8(const QString& path, QByteArray bytes, const QString& encoding, QString& guessed)
{
    guessed.clear();
    const QString cure = QStringLiteral("say which it is with \"encoding\" in its entry of a model file, such as "
                                        "\"windows-1251\"");
    if (!encoding.isEmpty()) {
        QTextCodec* const codec = QTextCodec::codecForName(encoding.toLatin1());
        if (!codec)
            throw LoadError(path, QStringLiteral("\"%1\" is not an encoding that is known").arg(encoding),
                            QStringLiteral("give one such as \"UTF-8\" or \"windows-1251\""));
        const QString text = decoded(*codec, bytes);
        if (text.isNull() && !bytes.isEmpty())
            throw LoadError(path, QStringLiteral("its text is not %1").arg(encoding), cure);
        return text.toUtf8();
    }
    if (bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff")) {
        const QString text = decoded(*QTextCodec::codecForName("UTF-16"), bytes);
        if (text.isNull())
            throw LoadError(path, QStringLiteral("it begins as UTF-16 text and goes on as something else"), cure);
        return text.toUtf8();
    }
    if (bytes.startsWith("\xef\xbb\xbf"))
        bytes.remove(0, 3);
    if (isUtf8(bytes))
        return bytes;
    const char* const likely = likelyEncoding(bytes);
    QTextCodec* const codec = likely ? QTextCodec::codecForName(likely) : nullptr;
    const QString text = codec ? decoded(*codec, bytes) : QString();
    if (text.isNull())
        throw LoadError(path, QStringLiteral("line %1: its encoding cannot be told").arg(firstLineBeyondAscii(bytes)),
                        cure);
    guessed = QString::fromLatin1(likely);
    return text.toUtf8();
}

} // namespace kpFormats
