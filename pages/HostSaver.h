// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AbstractSaver.h"
#include "core/saver/AbstractSaverFactory.h"
#include "export/ExportFormat.h"
#include "export/ExportReport.h"
#include "model/Model.h"
#include "pages/kpFormatsUiExport.h"

namespace kpFormats
{

/// A format of this program as the wizard's saver. Files whose overwriting was declined are left out; empty files that
/// the wizard's check created are removed when the save did not fill them.
class KPFORMATSUI_EXPORT HostSaver : public kpBaseExport::AbstractSaver
{
public:
    /// \a format and \a model outlive the saver.
    HostSaver(ExportFormat& format, const Model& model);

    void set_selection(const QString& path, const std::vector<int>& geoIds, const std::vector<std::string>& geoNames,
                       const std::vector<std::string>& attributeNames) override;
    bool save(const std::vector<QString>& acceptedFiles, kpBase::AbstractProgress* progress) override;
    using AbstractSaver::generateFileNames;
    void generateFileNames(const QString& path, const std::vector<int>& geoIds,
                           const std::vector<std::string>& geoNames, const std::vector<std::string>& attributeNames,
                           QStringList& geoAttributeFiles, QStringList& geometryFiles,
                           QStringList& attributeFiles) override;

    ExportFormat& format() const { return m_format; }
    const ExportSelection& selection() const { return m_selection; }
    /// The files of the selection that was set last.
    const std::vector<PlannedFile>& plannedFiles() const { return m_plan; }

    /// Read each file again before it replaces an earlier one.
    void setVerification(bool on) { m_verify = on; }
    /// Whether a file or object of the last save could not be written.
    bool hasFailures() const { return !m_failed.empty(); }
    /// The next save writes only the files that the last one could not write completely.
    void retryFailed() { m_retry = true; }

private:
    /// Some page of the format has let the user choose attributes.
    bool offersAttributes() const;
    void reportTo(const ExportReport& report);

    ExportFormat& m_format;
    const Model& m_model;
    ExportSelection m_selection;
    std::vector<PlannedFile> m_plan;
    std::vector<PlannedFile> m_failed; ///< of the last save
    bool m_verify = false;
    bool m_retry = false;
};

/// Makes the savers of one format. Registers itself; outlives every wizard.
class KPFORMATSUI_EXPORT HostSaverFactory : public kpBaseExport::AbstractSaverFactory
{
public:
    HostSaverFactory(ExportFormat& format, const Model& model);

    boost::shared_ptr<kpBaseExport::AbstractSaver> create_product() override;
    kpBaseExport::AbstractSaver* create_product_unmanaged() override;

private:
    ExportFormat& m_format;
    const Model& m_model;
};

} // namespace kpFormats
