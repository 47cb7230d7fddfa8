// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/FileContent.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// A test that runs the program in a folder.
class ProgramTest : public QObject
{
protected:
    struct Result
    {
        int code;
        QString out;
        QString error;
    };
    Result run(const QStringList& arguments)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder->path());
        process.start(QStringLiteral(KP_PROGRAM), arguments);
        process.waitForFinished(60000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
    }
    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    QString write(const char* name, const QByteArray& content) { return write(QString::fromUtf8(name), content); }
    QString write(const QString& name, const QByteArray& content)
    {
        return writeFile(m_folder->filePath(name), content);
    }
    QByteArray read(const char* name) const { return contentOf(path(name)); }
    void emptyFolder() { m_folder = std::make_unique<QTemporaryDir>(); }

    std::unique_ptr<QTemporaryDir> m_folder;
};
