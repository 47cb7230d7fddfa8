// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace kpFormats
{

/// What a script of Python prints, which reads a file with a library of somebody else; "absent" when that is not there.
inline QString foreignReader(const char* script, const QStringList& arguments)
{
    const QString path = QStringLiteral(KP_SOURCE_DIR "/tests/formats/") + QString::fromLatin1(script);
    QProcess process;
    // The system's Python is the one that has Debian's packages.
    process.start(QStringLiteral("/usr/bin/python3"), QStringList{QStringLiteral("-B"), path} + arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() == 77)
        return QStringLiteral("absent");
    if (process.exitCode() != 0)
        return QString::fromUtf8(process.readAllStandardError());
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace kpFormats
