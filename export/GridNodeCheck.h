// SPDX-License-Identifier: MIT
#pragma once

#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "export/Verification.h"

#include <optional>

namespace kpFormats
{

/// Compares the nodes of a grid file with those of the surface.
class KPFORMATS_EXPORT GridNodeCheck
{
public:
    GridNodeCheck(const ModelObject& object, const QString& attribute, const LengthFactors& factors,
                  Verification& result);

    /// \a read is the place and the number of the node as the file has them, \a missing whether it says that there is
    /// none; \a allowed is of an attribute.
    void compare(int node, const Verification::Place& read, bool missing, double allowed);

private:
    const ModelObject& m_object;
    LengthFactors m_factors;
    Verification& m_result;
    std::optional<NumberColumn> m_attribute;
};

} // namespace kpFormats
