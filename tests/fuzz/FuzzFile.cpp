// SPDX-License-Identifier: MIT
#include "tests/fuzz/FuzzFile.h"

#include "tests/support/FileContent.h"

#include <QTemporaryDir>

QString fuzzFile(const char* name, const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-XXXXXX"));
    return writeFile(folder.filePath(QString::fromLatin1(name)),
                     QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
}
