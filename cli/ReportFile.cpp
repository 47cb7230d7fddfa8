// SPDX-License-Identifier: MIT
#include "cli/ReportFile.h"

#include "cli/Terminal.h"
#include "export/ExportError.h"
#include "export/OutputTransaction.h"
#include "export/platform/SystemError.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>

#include <sys/stat.h>

namespace refhost
{

namespace
{

/// Whether both names lead to one file, or will when it is made.
bool isSame(const QString& one, const QString& other)
{
    struct stat first = {};
    struct stat second = {};
    if (::stat(QFile::encodeName(one).constData(), &first) == 0
        && ::stat(QFile::encodeName(other).constData(), &second) == 0)
        return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
    const auto place = [](const QString& path) {
        const QFileInfo info(path);
        return QFileInfo(info.absolutePath()).canonicalFilePath() + QLatin1Char('/') + info.fileName();
    };
    return place(one) == place(other);
}

bool containsFile(const QStringList& files, const QString& file)
{
    return std::any_of(files.begin(), files.end(),
                       [&file](const QString& other) { return !other.isEmpty() && isSame(other, file); });
}

bool isReport(const QString& path)
{
    constexpr qint64 largestReport = 256 * 1024 * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestReport)
        return false;
    const QJsonObject content = QJsonDocument::fromJson(file.readAll()).object();
    return content.value(QLatin1String("format")).isString() && content.value(QLatin1String("files")).isArray()
           && content.value(QLatin1String("findings")).isArray();
}

} // namespace

ReportFile::ReportFile(const ExportRequest& request)
    : m_request(request)
    , m_existed(QFileInfo::exists(request.report))
{
}

QString ReportFile::refusal(const QStringList& inputs, const QStringList& outputs) const
{
    return faultOf(inputs, outputs, m_request.overwrite);
}

QString ReportFile::refusalWithoutRun() const
{
    return faultOf(m_request.models, {m_request.output}, false);
}

QString ReportFile::faultOf(const QStringList& inputs, const QStringList& outputs, bool mayReplace) const
{
    const QString& path = m_request.report;
    if (path.isEmpty())
        return {};
    const auto because = [&path](const QString& cause, const QString& cure) {
        return QStringLiteral("%1: the report cannot go there: %2 (%3)").arg(path, cause, cure);
    };
    const QString another = QStringLiteral("choose another name");
    if (containsFile(inputs + QStringList{m_request.layout, m_request.jobFile}, path))
        return because(QStringLiteral("this is a file that the export reads"), another);
    if (containsFile(outputs, path))
        return because(QStringLiteral("this is a file that the export writes"), another);
    const QFileInfo info(path);
    if (m_existed && !info.isFile())
        return because(info.isDir() ? QStringLiteral("this is a directory")
                                    : QStringLiteral("this is a device or a pipe"),
                       another);
    try {
        OutputTransaction::requireWritable(path);
    } catch (const ExportError& error) {
        return QStringLiteral("%1: the report cannot go there: %2").arg(path, error.reason());
    }
    if (m_existed && !mayReplace && !isReport(path))
        return because(QStringLiteral("the file exists already and is not a report"),
                       QStringLiteral("add --overwrite to replace it"));
    return {};
}

bool ReportFile::write(const QJsonObject& report) const
{
    const QString& path = m_request.report;
    if (path.isEmpty())
        return true;
    using Existing = OutputTransaction::Existing;
    try {
        OutputTransaction transaction(m_existed ? Existing::Replace : Existing::Refuse);
        QFile file(transaction.stage(path));
        const QByteArray text = QJsonDocument(report).toJson();
        const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
        const int error = errno;
        if (!written)
            throw ExportError(path, errorText(error), writingCure(error));
        file.close();
        transaction.commit();
        return true;
    } catch (const ExportError& error) {
        printError(QStringLiteral("%1: the report could not be written: %2").arg(path, error.reason()));
        return false;
    }
}

} // namespace refhost
