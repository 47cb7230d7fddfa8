// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

/// All that is in a file; "could not open" where it cannot be read.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("could not open");
}

/// Writes a file. \returns its path
inline QString writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}
