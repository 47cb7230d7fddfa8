// SPDX-License-Identifier: MIT
#pragma once

#include "Model.h"

#include "core/saver/AbstractSaver.h"

/// Horizons as a plain text of this example's own; no other program reads it. A file per horizon:
///
///     horizon NAME              (or "horizon 1" where names are not used)
///     unit m elevation          (the unit of all numbers; elevation or depth)
///     X Y Z                     (a line for each point, two decimals)
///
/// The saver names its files itself.
class HorizonSaver : public kpBaseExport::AbstractSaver
{
public:
    explicit HorizonSaver(const Model& model);

    bool newFilenameSystem() override { return true; }
    void set_selection(const QString& path, const std::vector<int>& ids, const std::vector<std::string>& names,
                       const std::vector<std::string>& attributes) override;
    bool save(const std::vector<QString>&, kpBase::AbstractProgress*) override { return false; }
    bool new_save(const std::string& path, kpBase::AbstractProgress* progress) override;

private:
    const Model& m_model;
    std::vector<int> m_ids;
    std::vector<std::string> m_names;
};
