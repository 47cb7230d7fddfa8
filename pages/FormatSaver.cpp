// SPDX-License-Identifier: MIT
#include "pages/FormatSaver.h"

#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"
#include "export/AttributeNames.h"
#include "export/ExportRun.h"
#include "wizard/QExportWizard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace kpFormats
{

namespace
{

/// The files beside a written one that belong to it.
QString sidecarsHtml(const QStringList& names)
{
    return names.isEmpty() ? QString() : QStringLiteral(", with ") + names.join(QStringLiteral(", ")).toHtmlEscaped();
}

QString verifiedHtml(const FileOutcome& file)
{
    if (!file.verification)
        return {};
    return QStringLiteral("; read again by %1: %2; %3")
        .arg(file.verification->reader().toHtmlEscaped(), file.verification->comparedText().toHtmlEscaped(),
             file.verification->worstText().toHtmlEscaped());
}

bool sameSettings(const Format& format, const SettingsValue& one, const SettingsValue& other)
{
    const std::vector<Setting>& settings = one.settings();
    return std::all_of(settings.begin(), settings.end(),
                       [&](const Setting& setting) { return one.get(setting) == other.get(setting); })
           && format.layoutBytes(one) == format.layoutBytes(other);
}

bool sameSelection(const ExportSelection& one, const ExportSelection& other)
{
    return one.path == other.path && one.objects == other.objects && one.attributes == other.attributes
           && one.keepEarlier == other.keepEarlier;
}

} // namespace

FormatSaver::FormatSaver(FormatSetup& setup, const Model& model)
    : AbstractSaver(setup.format->info().key.toStdString())
    , m_setup(setup)
    , m_model(model)
{
    const FormatInfo info = setup.format->info();
    m_currentFileFormatName = info.fileFormatName;
    m_currentDefaultFileFormatExt = info.defaultExtension;
    m_currentAllFileFormatExt = info.patterns;
    m_formatDisplay = info.displayName;
    m_supportsAttributes = info.supportsAttributes;
    for (const ObjectType type : info.types)
        m_supportedTypes.insert(typeKey(type));
}

FormatSaver::~FormatSaver() = default;

void FormatSaver::set_selection(const QString& path, const std::vector<int>& geoIds, const std::vector<std::string>&,
                                const std::vector<std::string>& attributeNames)
{
    ExportSelection selection;
    selection.path = path;
    selection.sources = m_model.sources();
    selection.keepEarlier = m_keepEarlier;
    selection.objects = m_model.find(geoIds);
    // An empty list is a choice only where there was one; else everything goes out.
    if (offersAttributes()) {
        QStringList chosen;
        for (const std::string& name : attributeNames)
            chosen.append(QString::fromStdString(name));
        // All of them is not a choice: an object that lacks some of the others' has lost nothing.
        const QStringList all = kpFormats::attributeNames(selection.objects);
        const QSet<QString> wanted(chosen.begin(), chosen.end());
        if (all.isEmpty()
            || std::any_of(all.begin(), all.end(), [&wanted](const QString& name) { return !wanted.contains(name); }))
            selection.attributes = chosen;
    }
    prepare(std::move(selection));
    for (std::size_t index = 0; index < m_prepared->outputs().size(); ++index)
        m_prepared->outputs()[index].wanted = !m_retry || m_failed.count(index) > 0;
    m_retry = false;
}

/// The plan has shown what is now to be written: that is not looked for again.
void FormatSaver::prepare(ExportSelection selection)
{
    const Format& format = *m_setup.format;
    if (m_prepared && !m_written && sameSelection(selection, m_prepared->selection())
        && sameSettings(format, m_setup.settings, m_prepared->settings()))
        return;
    m_prepared = std::make_unique<PreparedExport>(format, std::move(selection), m_setup.settings);
    m_written = false;
}

bool FormatSaver::offersAttributes() const
{
    return m_supportsAttributes && std::any_of(m_sheets.begin(), m_sheets.end(), [](const auto* sheet) {
               return dynamic_cast<const kpBaseExport::AttributeNamesSheet*>(sheet) != nullptr;
           });
}

void FormatSaver::generateFileNames(const QString&, const std::vector<int>&, const std::vector<std::string>&,
                                    const std::vector<std::string>&, QStringList& geoAttributeFiles,
                                    QStringList& geometryFiles, QStringList&)
{
    const std::optional<QStringList>& chosen = m_prepared->selection().attributes;
    const bool attributes = m_supportsAttributes && !(chosen && chosen->isEmpty());
    QStringList& files = attributes ? geoAttributeFiles : geometryFiles;
    for (const PreparedExport::Output& output : m_prepared->outputs()) {
        if (output.wanted)
            files.append(output.planned.path);
    }
}

bool FormatSaver::save(const std::vector<QString>& acceptedFiles, kpBase::AbstractProgress* progress)
{
    const QSet<QString> accepted(acceptedFiles.begin(), acceptedFiles.end());
    std::vector<PreparedExport::Output>& outputs = m_prepared->outputs();
    std::vector<std::size_t> wanted;
    for (std::size_t index = 0; index < outputs.size(); ++index) {
        outputs[index].wanted = outputs[index].wanted && accepted.contains(outputs[index].planned.path);
        if (outputs[index].wanted)
            wanted.push_back(index);
    }
    m_failed.clear();
    m_written = true;
    m_prepared->verify = m_verify;
    const ExportReport report = runExport(*m_prepared, progress);
    // Outcomes come in the order of the files, up to the one at which the user cancelled.
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        const FileOutcome* const outcome =
            !report.cancelled && index < report.files().size() ? &report.files()[index] : nullptr;
        const QFileInfo info(outputs[wanted[index]].planned.path);
        if (!(outcome && outcome->written()) && info.isFile() && info.size() == 0)
            QFile::remove(info.filePath());
        if (!(outcome && outcome->complete()))
            m_failed.insert(wanted[index]);
    }
    reportTo(report);
    return !report.cancelled && !report.anyFailed();
}

void FormatSaver::reportTo(const ExportReport& report)
{
    QString rows;
    for (const FileOutcome& file : report.files()) {
        if (file.written() && !report.cancelled)
            rows += QStringLiteral("<br>%1: %2 rows, %3 bytes")
                        .arg(QFileInfo(file.path).fileName().toHtmlEscaped())
                        .arg(file.rows)
                        .arg(file.bytes)
                    + sidecarsHtml(file.sidecars) + verifiedHtml(file);
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
            wizard->setErrorMessage(object.name, object.reason.toHtmlEscaped() + QStringLiteral("<br>"));
        if (!file.written())
            wizard->setErrorMessage(file.path, file.error.toHtmlEscaped());
    }
}

FormatSaverFactory::FormatSaverFactory(FormatSetup& setup, const Model& model)
    : AbstractSaverFactory(setup.format->info().key.toStdString(), false)
    , m_setup(setup)
    , m_model(model)
{
}

boost::shared_ptr<kpBaseExport::AbstractSaver> FormatSaverFactory::create_product()
{
    return boost::shared_ptr<kpBaseExport::AbstractSaver>(create_product_unmanaged());
}

kpBaseExport::AbstractSaver* FormatSaverFactory::create_product_unmanaged()
{
    return new FormatSaver(m_setup, m_model);
}

} // namespace kpFormats
