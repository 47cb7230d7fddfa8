// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkFile.h"

#include "formats/vtk/VtkCells.h"
#include "formats/vtk/VtkImage.h"
#include "formats/vtk/VtkPolyData.h"
#include "formats/vtk/VtkVerification.h"

namespace kpFormats
{

namespace
{

VtkDocument documentOf(VtkKind kind, const PlannedFile& file, const ExportSelection& selection,
                       const VtkExportSettings& settings, Findings& findings)
{
    switch (kind) {
    case VtkKind::PolyData:
        return vtkPolyData(file, selection, settings, findings);
    case VtkKind::Cells:
        return vtkCells(file, selection, settings, findings);
    case VtkKind::Image:
        break;
    }
    return vtkImage(file, selection, settings, findings);
}

} // namespace

VtkFile::VtkFile(VtkKind kind, PlannedFile planned, const ExportSelection& selected, VtkExportSettings settings,
                 Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_kind(kind)
    , m_settings(std::move(settings))
    , m_document(documentOf(m_kind, file(), selection(), m_settings, findings))
{
}

qint64 VtkFile::write(const QString& path, Findings&, kpBase::AbstractProgress* progress)
{
    BlockWriter out(path, file().path);
    if (m_document.write(out, progress))
        out.close();
    return m_document.rows;
}

std::optional<Verification> VtkFile::verify(const QString& path) const
{
    return verifyVtk(m_kind, file().objects, path, selection(), m_settings);
}

} // namespace kpFormats
