// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace kpFormats
{

/// What to export and where to.
struct ExportSelection
{
    std::vector<const ModelObject*> objects;
    std::optional<QStringList> attributes; ///< only these; all when not set
    QString path;                          ///< as the user gave it
    QStringList sources;                   ///< what the objects were read from: no file that goes with one replaces it
    bool verify = false;                   ///< read each file again before it replaces an earlier one
    bool keepEarlier = false;              ///< give files that would replace earlier ones other names
    bool overwrite = true;                 ///< losing earlier files of the same names has been agreed to
    /// Told for whom the run waits: "process 12 (name)". May be empty.
    std::function<void(const QString& holder)> waiting;

    bool wantsAttribute(const QString& name) const { return !attributes || attributes->contains(name); }
};

} // namespace kpFormats
