// SPDX-License-Identifier: MIT
#include "core/GeoObject.h"

#include "host/data/MatrixData.h"

#include <algorithm>

namespace kpBaseExport
{

GeoObject::GeoObject() = default;

GeoObject::~GeoObject()
{
    clearData();
}

GeoObject::MatrixList& GeoObject::vertexData()
{
    return m_vertexData;
}

const GeoObject::MatrixList& GeoObject::vertexData() const
{
    return m_vertexData;
}

GeoObject::MatrixList& GeoObject::vertexAttributeData()
{
    return m_vertexAttributeData;
}

const GeoObject::MatrixList& GeoObject::vertexAttributeData() const
{
    return m_vertexAttributeData;
}

GeoObject::MatrixList& GeoObject::sectionData()
{
    return m_sectionData;
}

const GeoObject::MatrixList& GeoObject::sectionData() const
{
    return m_sectionData;
}

GeoObject::MatrixList& GeoObject::threeDKelvoFractures()
{
    return m_fractureData;
}

const GeoObject::MatrixList& GeoObject::threeDKelvoFractures() const
{
    return m_fractureData;
}

bool GeoObject::checkVectorSizes() const
{
    if (m_vertexData.empty())
        return false;
    const int rows = m_vertexData.front()->rowCount();
    const auto fits = [rows](const kpBase::MatrixData* matrix) { return matrix->rowCount() == rows; };
    return std::all_of(m_vertexData.begin(), m_vertexData.end(), fits)
           && std::all_of(m_vertexAttributeData.begin(), m_vertexAttributeData.end(), fits);
}

void GeoObject::clearData()
{
    name.clear();
    for (MatrixList* list : {&m_vertexData, &m_vertexAttributeData, &m_sectionData, &m_fractureData}) {
        for (kpBase::MatrixData* matrix : *list)
            delete matrix;
        list->clear();
    }
}

} // namespace kpBaseExport
