// SPDX-License-Identifier: MIT
#include "host/data/FormatFileText.h"

#include <QFile>
#include <QFileInfo>

namespace
{

// A layout of 100,000 fields takes some 15 MB.
constexpr qint64 largestFile = 32 * 1024 * 1024;

/// The index behind the string that begins at \a from with a quote.
int behindString(const QByteArray& text, int from)
{
    int index = from + 1;
    while (index < text.size() && text[index] != '"')
        index += text[index] == '\\' ? 2 : 1;
    return index + 1;
}

bool isOpening(char c)
{
    return c == '{' || c == '[';
}

bool isClosing(char c)
{
    return c == '}' || c == ']';
}

} // namespace

JsonPlaces::JsonPlaces(const QByteArray& text)
{
    int line = 1;
    int depth = 0;
    bool keyNext = false; // the next string is a key of the outermost object
    QByteArray key;
    for (int index = 0; index < text.size(); ++index) {
        const char c = text[index];
        if (c == '\n') {
            ++line;
        } else if (c == '"') {
            const int end = behindString(text, index);
            if (depth == 1 && keyNext) {
                key = text.mid(index + 1, end - index - 2);
                m_keys.emplace(key, line);
                keyNext = false;
            } else if (depth == 2 && key == "fields") {
                m_fields.push_back(line);
            }
            index = end - 1;
        } else if (isOpening(c)) {
            if (depth == 2 && key == "fields")
                m_fields.push_back(line);
            ++depth;
            keyNext = depth == 1;
        } else if (isClosing(c)) {
            --depth;
        } else if (c == ',' && depth == 1) {
            keyNext = true;
        }
    }
}

int JsonPlaces::lineOf(const char* key) const
{
    const auto found = m_keys.find(key);
    return found == m_keys.end() ? 1 : found->second;
}

int JsonPlaces::lineOfField(int index) const
{
    const auto at = static_cast<std::size_t>(index);
    return at < m_fields.size() ? m_fields[at] : lineOf("fields");
}

QByteArray formatFileContent(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        throw FormatFileError(QStringLiteral("the file cannot be opened"));
    // A device has no size; what it gives is cut off behind the limit. Block by block: QFile::read() takes memory for
    // all that it is asked for.
    constexpr qint64 block = 1 << 16;
    QByteArray content;
    for (QByteArray part = file.read(block); !part.isEmpty(); part = file.read(block)) {
        content += part;
        if (content.size() > largestFile)
            throw FormatFileError(QStringLiteral("the file is larger than a layout can be (32 MB)"));
    }
    return content;
}
