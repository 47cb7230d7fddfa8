// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Findings.h"
#include "export/SafeNames.h"
#include "formats/vtk/VtkDocument.h"
#include "formats/vtk/VtkExportSettings.h"

namespace kpFormats
{

/// The values of an attribute of one object, or nothing where it has no such attribute.
class VtkSource
{
public:
    VtkSource() = default;
    explicit VtkSource(const AttributeColumn& column);
    explicit VtkSource(const ObjectAttribute& attribute);

    bool exists() const { return m_column || m_attribute; }
    bool isMissing(int row) const;
    /// NaN where it is missing.
    double real(int row) const;
    qint64 whole(int row) const;
    /// As UTF-8; empty where it is missing.
    QByteArray text(int row) const;
    int missing() const;    ///< how many of its values
    int unexact() const;    ///< whole numbers that no double holds
    int withZeroes() const; ///< texts with a zero character

private:
    QVariant value(int row) const;
    template <typename Is>
    int count(Is is) const;

    const AttributeColumn* m_column = nullptr;
    const ObjectAttribute* m_attribute = nullptr;
    QByteArray m_text; ///< of the attribute of the whole object
};

/// One attribute of the objects of a file.
struct VtkColumn
{
    QString name;   ///< in the file
    QString unit;   ///< empty for none
    QString wanted; ///< its name in the model
    VtkType type = VtkType::Float64;
    std::vector<VtkSource> sources; ///< one per object
};

/// Which attributes of an object are meant.
enum class VtkPlace { Vertices, Object, Cells };

/// The chosen attributes of all objects, each name once for texts and once for numbers. \a names gives out names and
/// knows those that the file has for itself. Notes what is renamed, left out or changed.
std::vector<VtkColumn> vtkColumns(const std::vector<const ModelObject*>& objects, VtkPlace place,
                                  const ExportSelection& selection, const VtkExportSettings& settings,
                                  UniqueNames& names, Findings& findings);

/// Calls its argument with the number of the object and of the row of each value, in the order of the file, until it
/// returns false.
using VtkRows = std::function<void(const std::function<bool(std::size_t object, int row)>&)>;

/// The array of a column of \a tuples values.
VtkArray vtkArrayOf(VtkColumn column, qint64 tuples, const VtkRows& rows);

} // namespace kpFormats
