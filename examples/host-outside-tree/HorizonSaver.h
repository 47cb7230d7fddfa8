// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AbstractSaver.h"
#include "model/Model.h"

/// Horizons as a plain text of this example's own; no other program reads it. A file per horizon:
///
///     horizon NAME              (or "horizon 1" where names are not used)
///     unit m elevation          (the unit of all numbers; elevation or depth)
///     X Y Z                     (a line for each point, two decimals)
///
/// A saver on the library alone, for what does not fit the kit: it names its files itself, and its page is one of the
/// library's.
class HorizonSaver : public kpBaseExport::AbstractSaver
{
public:
    explicit HorizonSaver(const kpFormats::Model& model);

    bool newFilenameSystem() override { return true; }
    void set_selection(const QString& path, const std::vector<int>& ids, const std::vector<std::string>& names,
                       const std::vector<std::string>& attributes) override;
    bool save(const std::vector<QString>&, kpBase::AbstractProgress*) override { return false; }
    bool new_save(const std::string& path, kpBase::AbstractProgress* progress) override;

private:
    const kpFormats::Model& m_model;
    std::vector<int> m_ids;
    std::vector<std::string> m_names;
};
