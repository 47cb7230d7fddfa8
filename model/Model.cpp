// SPDX-License-Identifier: MIT
#include "model/Model.h"

#include <utility>

namespace kpFormats
{

int Model::add(ModelObject object)
{
    object.id = static_cast<int>(m_objects.size()) + 1;
    m_index.emplace(object.id, m_objects.size());
    m_objects.push_back(std::move(object));
    return m_objects.back().id;
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

} // namespace kpFormats
