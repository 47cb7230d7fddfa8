// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

namespace kpBaseExport
{

/// The editor's own texts, translated among those of its form.
struct FormTexts
{
    Q_DECLARE_TR_FUNCTIONS(QExportSpecification)
};

} // namespace kpBaseExport
