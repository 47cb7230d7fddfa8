// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <string>
#include <vector>

namespace kpBase
{
class MatrixData;
}

namespace kpBaseExport
{

/// The record through which one model object reaches a writer: a name and four lists of matrices.
/// The record owns every matrix in its lists and deletes it in clearData() or when it is destroyed;
/// null entries are skipped. It cannot be copied, so that each matrix has one owner.
class KPBASEEXPORTCORE_EXPORT GeoObject
{
public:
    using MatrixList = std::vector<kpBase::MatrixData*>;

    GeoObject();
    GeoObject(const GeoObject&) = delete;
    GeoObject& operator=(const GeoObject&) = delete;
    virtual ~GeoObject();

    /// Vertex matrices: element 0 gives the number of vertices, elements 1, 2, 3 are x, y, z (column 0 each).
    MatrixList& vertexData();
    const MatrixList& vertexData() const;
    /// One matrix per vertex attribute, one row per vertex, value in column 0, found by its name().
    MatrixList& vertexAttributeData();
    const MatrixList& vertexAttributeData() const;
    /// One matrix per section segment: a row per point, columns x, y, z.
    MatrixList& sectionData();
    const MatrixList& sectionData() const;
    /// Fracture sets; held and deleted like the others, read by no writer of this library.
    MatrixList& threeDKelvoFractures();
    const MatrixList& threeDKelvoFractures() const;

    /// True when there is a vertex matrix and all vertex and vertex attribute matrices have as many rows as the first.
    bool checkVectorSizes() const;

    /// Empties the name and the lists and deletes their matrices. The record can be filled again.
    void clearData();

    std::string name; ///< Name of the object, in UTF-8.

private:
    MatrixList m_vertexData;
    MatrixList m_vertexAttributeData;
    MatrixList m_sectionData;
    MatrixList m_fractureData;
};

} // namespace kpBaseExport
