// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "model/Model.h"
#include "pages/WizardFormats.h"

#include <set>

namespace refhost
{

/// What the wizard's pages know of the program: the model, the selection in its views, the formats. Constructing it
/// registers every saver and sheet; it is made once and outlives every wizard.
class HostContext
{
public:
    explicit HostContext(Formats offered = makeFormats());

    Model model;
    QStringList modelPaths;    ///< the files that the model was loaded from, in order
    std::set<int> selectedIds; ///< objects selected in the program's views

    const WizardFormats formats;
};

} // namespace refhost
