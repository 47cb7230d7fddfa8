// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

#include <QStringList>

#include <unordered_map>
#include <vector>

namespace kpFormats
{

/// The in-memory model: objects in the order in which they were added, found by id.
class KPFORMATS_EXPORT Model
{
public:
    /// Takes the object and gives it the next free id.
    /// \returns the id
    /// \throws std::invalid_argument when the object is not sound: everything that works on a model relies on it
    int add(ModelObject object);
    /// Gives its objects away; the model is empty then.
    std::vector<ModelObject> take();

    const std::vector<ModelObject>& objects() const;
    /// The object with that id, or null. Valid until the next add().
    const ModelObject* find(int id) const;
    /// Those of the objects that there are, in the order of \a ids.
    std::vector<const ModelObject*> find(const std::vector<int>& ids) const;

    /// The files that were read for it, those that others name included.
    const QStringList& sources() const { return m_sources; }
    void addSource(const QString& path) { m_sources.append(path); }

private:
    std::vector<ModelObject> m_objects;
    std::unordered_map<int, std::size_t> m_index;
    QStringList m_sources;
};

} // namespace kpFormats
