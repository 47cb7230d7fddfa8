// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <stdexcept>
#include <vector>

/// A format file that cannot be read; what() is "line N: cause" or a cause that has no line.
class FormatFileError : public std::runtime_error
{
public:
    explicit FormatFileError(const QString& cause)
        : std::runtime_error(cause.toStdString())
    {
    }
    FormatFileError(int line, const QString& cause)
        : FormatFileError(QStringLiteral("line %1: %2").arg(line).arg(cause))
    {
    }
};

/// Where the members of a JSON text begin: those of the outermost object by key, and the elements of its array "fields".
/// \a text must be sound JSON; this tells lines only.
struct JsonPlaces
{
    explicit JsonPlaces(const QByteArray& text);

    int lineOf(const char* key) const;
    int lineOfField(int index) const;

private:
    std::map<QByteArray, int> m_keys; ///< line of each key
    std::vector<int> m_fields;        ///< line of each element of "fields"
};

/// The content of a file that is no larger than a format file can be.
/// \throws FormatFileError
QByteArray formatFileContent(const QString& path);
