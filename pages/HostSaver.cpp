// SPDX-License-Identifier: MIT
#include "pages/HostSaver.h"

#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"
#include "export/AttributeNames.h"
#include "export/ExportRun.h"
#include "wizard/QExportWizard.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace kpFormats
{

namespace
{

QString verifiedHtml(const Verification& verification)
{
    if (verification.reader.isEmpty())
        return {};
    return QStringLiteral("; read again by %1, worst coordinate error %2")
        .arg(verification.reader.toHtmlEscaped())
        .arg(verification.worstError, 0, 'g', 3);
}

} // namespace

HostSaver::HostSaver(ExportFormat& format, const Model& model)
    : AbstractSaver(format.info().key.toStdString())
    , m_format(format)
    , m_model(model)
{
    const FormatInfo info = format.info();
    m_currentFileFormatName = info.fileFormatName;
    m_currentDefaultFileFormatExt = info.defaultExtension;
    m_currentAllFileFormatExt = info.patterns;
    m_formatDisplay = info.displayName;
    m_supportsAttributes = info.supportsAttributes;
    for (const ObjectType type : info.types)
        m_supportedTypes.insert(typeKey(type));
}

void HostSaver::set_selection(const QString& path, const std::vector<int>& geoIds, const std::vector<std::string>&,
                              const std::vector<std::string>& attributeNames)
{
    m_selection = ExportSelection();
    m_selection.path = path;
    for (const int id : geoIds) {
        if (const ModelObject* object = m_model.find(id))
            m_selection.objects.push_back(object);
    }
    // An empty list is a choice only where there was one; else everything goes out.
    if (offersAttributes()) {
        QStringList chosen;
        for (const std::string& name : attributeNames)
            chosen.append(QString::fromStdString(name));
        // All of them is no choice: an object that lacks some of the others' has lost nothing.
        const QStringList all = kpFormats::attributeNames(m_selection.objects);
        const QSet<QString> wanted(chosen.begin(), chosen.end());
        if (all.isEmpty()
            || std::any_of(all.begin(), all.end(), [&wanted](const QString& name) { return !wanted.contains(name); }))
            m_selection.attributes = chosen;
    }
    m_selection.verify = m_verify;
    m_plan = m_retry ? m_failed : m_format.plan(m_selection);
    m_retry = false;
}

bool HostSaver::offersAttributes() const
{
    return m_supportsAttributes && std::any_of(m_sheets.begin(), m_sheets.end(), [](const auto* sheet) {
               return dynamic_cast<const kpBaseExport::AttributeNamesSheet*>(sheet) != nullptr;
           });
}

void HostSaver::generateFileNames(const QString&, const std::vector<int>&, const std::vector<std::string>&,
                                  const std::vector<std::string>&, QStringList& geoAttributeFiles, QStringList&,
                                  QStringList&)
{
    for (const PlannedFile& file : m_plan)
        geoAttributeFiles.append(file.path);
}

bool HostSaver::save(const std::vector<QString>& acceptedFiles, kpBase::AbstractProgress* progress)
{
    const QSet<QString> accepted(acceptedFiles.begin(), acceptedFiles.end());
    std::vector<PlannedFile> files;
    for (const PlannedFile& file : m_plan) {
        if (accepted.contains(file.path))
            files.push_back(file);
    }
    ExportReport report;
    m_failed.clear();
    const bool written = runExport(m_format, m_selection, files, progress, report);
    // Outcomes come in the order of the files, up to the one at which the user cancelled.
    for (std::size_t index = 0; index < files.size(); ++index) {
        const FileOutcome* const outcome =
            !report.cancelled && index < report.files().size() ? &report.files()[index] : nullptr;
        const QFileInfo info(files[index].path);
        if (!(outcome && outcome->written()) && info.isFile() && info.size() == 0)
            QFile::remove(info.filePath());
        if (!(outcome && outcome->complete()))
            m_failed.push_back(files[index]);
    }
    reportTo(report);
    return written;
}

void HostSaver::reportTo(const ExportReport& report)
{
    QString rows;
    for (const FileOutcome& file : report.files()) {
        if (file.written() && !report.cancelled)
            rows += QStringLiteral("<br>%1: %2 rows, %3 bytes")
                        .arg(QFileInfo(file.path).fileName().toHtmlEscaped())
                        .arg(file.rows)
                        .arg(file.bytes)
                    + verifiedHtml(file.verification);
    }
    m_warnings = rows.isEmpty() ? QString() : QStringLiteral("<b>Written:</b>") + rows + QStringLiteral("<br><br>");
    m_warnings += report.findings.toHtml();
    auto* wizard = dynamic_cast<kpBaseExport::QExportWizard*>(get_wizard());
    if (!wizard)
        return;
    // What an earlier run of this dialog failed at is no longer of interest.
    wizard->clearErrorList();
    wizard->setWarnings(m_warnings);
    for (const FileOutcome& file : report.files()) {
        for (const FailedObject& object : file.failedObjects)
            wizard->setErrorMessage(object.name.toHtmlEscaped(),
                                    object.reason.toHtmlEscaped() + QStringLiteral("<br>"));
        if (!file.written())
            wizard->setErrorMessage(file.path.toHtmlEscaped(), file.error.toHtmlEscaped());
    }
}

HostSaverFactory::HostSaverFactory(ExportFormat& format, const Model& model)
    : AbstractSaverFactory(format.info().key.toStdString(), false)
    , m_format(format)
    , m_model(model)
{
}

boost::shared_ptr<kpBaseExport::AbstractSaver> HostSaverFactory::create_product()
{
    return boost::shared_ptr<kpBaseExport::AbstractSaver>(create_product_unmanaged());
}

kpBaseExport::AbstractSaver* HostSaverFactory::create_product_unmanaged()
{
    return new HostSaver(m_format, m_model);
}

} // namespace kpFormats
