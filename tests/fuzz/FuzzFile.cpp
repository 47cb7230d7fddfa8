// SPDX-License-Identifier: MIT
#include "tests/fuzz/FuzzFile.h"

#include <QFile>
#include <QTemporaryDir>

QString fuzzFile(const char* name, const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-XXXXXX"));
    const QString path = folder.filePath(QString::fromLatin1(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        || file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) != static_cast<qint64>(size))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}
