// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AbstractSaver.h"
#include "core/saver/AbstractSaverFactory.h"
#include "export/PreparedExport.h"
#include "model/Model.h"
#include "pages/FormatSetup.h"
#include "pages/kpFormatsUiExport.h"

#include <memory>
#include <set>

namespace kpFormats
{

/// A format as the wizard's saver: writes its files all or nothing, reports what was lost. Files whose overwriting was
/// declined are left out; empty files that the wizard's check created are removed when the save did not fill them.
class KPFORMATSUI_EXPORT FormatSaver : public kpBaseExport::AbstractSaver
{
public:
    /// \a setup and \a model outlive the saver.
    FormatSaver(FormatSetup& setup, const Model& model);
    ~FormatSaver() override;

    void set_selection(const QString& path, const std::vector<int>& geoIds, const std::vector<std::string>& geoNames,
                       const std::vector<std::string>& attributeNames) override;
    bool save(const std::vector<QString>& acceptedFiles, kpBase::AbstractProgress* progress) override;
    using AbstractSaver::generateFileNames;
    void generateFileNames(const QString& path, const std::vector<int>& geoIds,
                           const std::vector<std::string>& geoNames, const std::vector<std::string>& attributeNames,
                           QStringList& geoAttributeFiles, QStringList& geometryFiles,
                           QStringList& attributeFiles) override;

    const FormatSetup& setup() const { return m_setup; }
    /// What is known of the selection that was set last; null before.
    const PreparedExport* prepared() const { return m_prepared.get(); }

    /// Read each file again before it replaces an earlier one.
    void setVerification(bool on) { m_verify = on; }
    bool verifies() const { return m_verify; }
    /// Name files otherwise that would replace earlier ones.
    void setKeepEarlier(bool on) { m_keepEarlier = on; }
    /// Whether a file or object of the last save could not be written.
    bool hasFailures() const { return !m_failed.empty(); }
    /// The next save writes only the files that the last one could not write completely.
    void retryFailed() { m_retry = true; }

private:
    /// Some page of the format has let the user choose attributes.
    bool offersAttributes() const;
    void prepare(ExportSelection selection);
    void reportTo(const ExportReport& report);

    FormatSetup& m_setup;
    const Model& m_model;
    std::unique_ptr<PreparedExport> m_prepared;
    bool m_written = false;         ///< what is prepared has been written
    std::set<std::size_t> m_failed; ///< files of the last save, by their place among the outputs
    bool m_verify = false;
    bool m_retry = false;
    bool m_keepEarlier = false;
};

/// Makes the savers of one format. Registers itself; outlives every wizard.
class KPFORMATSUI_EXPORT FormatSaverFactory : public kpBaseExport::AbstractSaverFactory
{
public:
    FormatSaverFactory(FormatSetup& setup, const Model& model);

    boost::shared_ptr<kpBaseExport::AbstractSaver> create_product() override;
    kpBaseExport::AbstractSaver* create_product_unmanaged() override;

private:
    FormatSetup& m_setup;
    const Model& m_model;
};

} // namespace kpFormats
