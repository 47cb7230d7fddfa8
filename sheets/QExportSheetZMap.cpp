// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetZMap.h"

namespace kpBaseExport
{

QExportSheetZMap::QExportSheetZMap()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
{
    m_pageWidget = this;
}

QExportSheetZMap::~QExportSheetZMap() = default;

void QExportSheetZMap::initialize(const QString&) {}

} // namespace kpBaseExport
