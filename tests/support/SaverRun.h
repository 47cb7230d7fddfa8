// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportRun.h"
#include "readers/ModelLoader.h"
#include "tests/support/CancelAt.h"
#include "tests/support/FileContent.h"
#include "tests/support/TestObjects.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// What the tests of the savers share: a run from settings to files and findings, the data, the validators.

namespace kpFormats
{

inline std::unique_ptr<const Format> formatOf(const QString& key)
{
    for (auto& candidate : makeFormats()) {
        if (candidate->info().key == key)
            return std::move(candidate);
    }
    return nullptr;
}

/// One run of a format over objects, with a read-back of each file written. It can be repeated.
struct SaverRun
{
    /// "key=value;key=value", values being taken as they stand.
    struct Settings
    {
        Settings(const char* text = "")
            : pairs(QString::fromUtf8(text))
        {
        }
        Settings(const QString& text)
            : pairs(text)
        {
        }
        QString pairs;
    };

    SaverRun(const QString& key, std::vector<ModelObject> all, const QString& path, const Settings& settings = {},
             kpBase::AbstractProgress* progress = nullptr)
        : objects(std::move(all))
        , format(formatOf(key))
        , values(format->defaults())
    {
        for (const ModelObject& object : objects)
            selection.objects.push_back(&object);
        selection.path = path;
        again(settings, progress);
    }
    SaverRun(const char* key, std::vector<ModelObject> all, const QString& path, const Settings& settings = {},
             kpBase::AbstractProgress* progress = nullptr)
        : SaverRun(QString::fromLatin1(key), std::move(all), path, settings, progress)
    {
    }
    SaverRun(const SaverRun&) = delete;
    SaverRun& operator=(const SaverRun&) = delete;

    bool again(const Settings& settings = {}, kpBase::AbstractProgress* progress = nullptr)
    {
        for (const QString& pair : settings.pairs.split(QLatin1Char(';'), Qt::SkipEmptyParts))
            values.set(pair.section(QLatin1Char('='), 0, 0), pair.section(QLatin1Char('='), 1));
        readBack.clear();
        prepared = std::make_unique<PreparedExport>(*format, selection, values);
        report = runExport(*prepared, progress);
        written = !report.cancelled && !report.anyFailed();
        files.clear();
        for (const PreparedExport::Output& output : prepared->outputs())
            files.push_back(output.planned);
        for (std::size_t index = 0; written && index < files.size(); ++index)
            readBack.push_back(verify(index));
        return written;
    }

    Verification verify(std::size_t file = 0) const
    {
        return prepared->outputs().at(file).file->verify(files.at(file).path).value();
    }
    /// Puts another text in the place of one that stands in the file once. \returns what reading it again finds then
    Verification damaged(const QByteArray& right, const QByteArray& wrong, std::size_t file = 0) const
    {
        QByteArray text = bytes(file);
        if (text.count(right) != 1)
            qFatal("\"%s\" stands %d times in:\n%s", right.constData(), text.count(right), text.constData());
        writeFile(files.at(file).path, text.replace(right, wrong));
        return verify(file);
    }
    QByteArray bytes(std::size_t file = 0) const { return contentOf(files.at(file).path); }
    /// What went wrong with a file or an object of it.
    QString error(std::size_t file = 0) const
    {
        if (report.files().size() <= file)
            return {};
        QString text = report.files()[file].error;
        for (const FailedObject& failed : report.files()[file].failedObjects)
            text += QStringLiteral("; %1: %2").arg(failed.name, failed.reason);
        return text;
    }
    qint64 rows() const { return report.files().empty() ? -1 : report.files().front().rows; }
    /// "kind: count" of every finding, in order.
    QString findings() const
    {
        QStringList list;
        for (const Finding& finding : report.findings.all())
            list.append(QStringLiteral("%1: %2").arg(finding.kind()).arg(finding.count));
        return list.join(QStringLiteral(", "));
    }
    qint64 countOf(const QString& kind) const
    {
        qint64 count = 0;
        for (const Finding& finding : report.findings.all())
            count += finding.kind() == kind ? finding.count : 0;
        return count;
    }
    /// The first fault that reading the files again has found.
    QString fault() const
    {
        if (!written)
            return QStringLiteral("not written: ") + error();
        for (const Verification& one : readBack) {
            if (!one.fault().isEmpty())
                return one.fault();
        }
        return {};
    }

    std::vector<ModelObject> objects;
    std::unique_ptr<const Format> format;
    SettingsValue values;
    std::unique_ptr<PreparedExport> prepared;
    ExportSelection selection;
    std::vector<PlannedFile> files;
    ExportReport report;
    std::vector<Verification> readBack;
    bool written = false;
};

/// A test with a folder for its files.
class SaverTest : public QObject
{
protected:
    void emptyFolder() { m_folder = std::make_unique<QTemporaryDir>(); }
    QString path(const char* name = "") const { return path(QString::fromUtf8(name)); }
    QString path(const QString& name) const { return m_folder->filePath(name); }
    /// Writes a file. \returns its path
    QString write(const char* name, const QByteArray& content) const { return writeFile(path(name), content); }
    QString listing() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)
            .join(QLatin1Char(' '));
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder = std::make_unique<QTemporaryDir>();
};

inline std::vector<ModelObject> loaded(const QString& path, const LoadOptions& options = {})
{
    Model model;
    loadInto(model, path, options);
    return model.objects();
}

/// A file of the folder beside the sources that may be absent; empty when it is.
inline QString shared(const char* name)
{
    const QString path = QStringLiteral(KP_SOURCE_DIR "/../shared/") + QString::fromLatin1(name);
    return QFileInfo::exists(path) ? path : QString();
}

inline QString sample(const char* name)
{
    return QStringLiteral(KP_SOURCE_DIR "/examples/sample/") + QString::fromLatin1(name);
}

/// All files of a folder and their contents.
inline QMap<QString, QByteArray> contentsOf(const QString& folder)
{
    QMap<QString, QByteArray> contents;
    for (const QString& name : QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        contents.insert(name, contentOf(folder + QLatin1Char('/') + name));
    return contents;
}

/// Runs a validator of the shared folder beside the sources. \returns its complaint; "absent" when it is not there
inline QString validate(const char* script, const QStringList& arguments)
{
    const QString path = shared(script);
    if (path.isEmpty())
        return QStringLiteral("absent");
    QProcess process;
    process.start(path, arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return QStringLiteral("did not run");
    if (process.exitCode() == 2)
        return QStringLiteral("absent");
    return process.exitCode() == 0 ? QString() : QString::fromUtf8(process.readAllStandardError());
}

#define KP_VALIDATE(script, ...)                                                                                       \
    do {                                                                                                               \
        const QString complaint = validate("validate/" script, QStringList{__VA_ARGS__});                              \
        if (complaint != QLatin1String("absent"))                                                                      \
            QVERIFY2(complaint.isEmpty(), qPrintable(complaint));                                                      \
    } while (false)

} // namespace kpFormats
