// SPDX-License-Identifier: MIT
#include "export/PreparedFile.h"

#include <utility>

namespace kpFormats
{

PreparedFile::PreparedFile(PlannedFile file, const ExportSelection& selection)
    : m_file(std::move(file))
    , m_selection(selection)
{
}

PreparedFile::~PreparedFile() = default;

std::optional<Verification> PreparedFile::verify(const QString&) const
{
    return std::nullopt;
}

} // namespace kpFormats
