// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportFormat.h"
#include "app/model/Model.h"
#include "core/saver/AbstractSaver.h"
#include "core/saver/AbstractSaverFactory.h"

namespace refhost
{

/// A format of this program as the wizard's saver. Files whose overwriting was declined are left out; empty files that
/// the wizard's check created are removed when the save did not fill them.
class HostSaver : public kpBaseExport::AbstractSaver
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

    ExportFormat& format() { return m_format; }

private:
    /// Some page of the format has let the user choose attributes.
    bool offersAttributes() const;
    void reportTo(const ExportReport& report);

    ExportFormat& m_format;
    const Model& m_model;
    ExportSelection m_selection;
    std::vector<PlannedFile> m_plan;
};

/// Makes the savers of one format. Registers itself; outlives every wizard.
class HostSaverFactory : public kpBaseExport::AbstractSaverFactory
{
public:
    HostSaverFactory(ExportFormat& format, const Model& model);

    boost::shared_ptr<kpBaseExport::AbstractSaver> create_product() override;
    kpBaseExport::AbstractSaver* create_product_unmanaged() override;

private:
    ExportFormat& m_format;
    const Model& m_model;
};

} // namespace refhost
