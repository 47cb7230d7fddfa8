// SPDX-License-Identifier: MIT
#include "model/Model.h"

#include "model/ObjectCheck.h"

#include <stdexcept>
#include <utility>

namespace kpFormats
{

int Model::add(ModelObject object)
{
    const QString fault = faultOf(object);
    if (!fault.isEmpty())
        throw std::invalid_argument(QStringLiteral("object %1: %2").arg(object.name, fault).toStdString());
    object.id = static_cast<int>(m_objects.size()) + 1;
    m_index.emplace(object.id, m_objects.size());
    m_objects.push_back(std::move(object));
    return m_objects.back().id;
}

std::vector<ModelObject> Model::take()
{
    m_index.clear();
    return std::exchange(m_objects, {});
}

const std::vector<ModelObject>& Model::objects() const
{
    return m_objects;
}

const ModelObject* Model::find(int id) const
{
    const auto found = m_index.find(id);
    return found == m_index.end() ? nullptr : &m_objects[found->second];
}

std::vector<const ModelObject*> Model::find(const std::vector<int>& ids) const
{
    std::vector<const ModelObject*> found;
    for (const int id : ids) {
        if (const ModelObject* object = find(id))
            found.push_back(object);
    }
    return found;
}

} // namespace kpFormats
