// SPDX-License-Identifier: MIT
#include "tests/fuzz/FuzzFile.h"

#include "host/data/FormatFile.h"
#include "tests/app/FileContent.h"

#include <QTemporaryDir>

QString fuzzFile(const char* name, const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-XXXXXX"));
    return writeFile(folder.filePath(QString::fromLatin1(name)),
                     QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
}

void checkLayout(const std::unique_ptr<FormatFile>& file, const QString& error)
{
    if (!file && error.isEmpty())
        qFatal("a layout was refused without a word");
    const std::unique_ptr<FormatFile> again(file ? FormatFile::fromBytes(file->toBytes()) : nullptr);
    if (file && (!again || again->toBytes() != file->toBytes()))
        qFatal("a layout changed on its way through a file");
}
