// SPDX-License-Identifier: MIT
#pragma once

#include "Model.h"

#include "core/saver/AbstractSaver.h"

/// Points as text, written by the library's ASCII writer; the options are those of PointSheet.
class PointSaver : public kpBaseExport::AbstractSaver
{
public:
    explicit PointSaver(const Model& model);

    void set_selection(const QString& path, const std::vector<int>& ids, const std::vector<std::string>& names,
                       const std::vector<std::string>& attributes) override;
    bool save(const std::vector<QString>& acceptedFiles, kpBase::AbstractProgress* progress) override;

private:
    const Model& m_model;
    std::vector<int> m_ids;
    std::vector<std::string> m_attributes;
};
