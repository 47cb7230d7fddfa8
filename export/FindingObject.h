// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"

#include <optional>

namespace kpFormats
{

/// What a finding is about: an object of the model, or something else that has a name.
struct FindingObject
{
    FindingObject(const ModelObject& object)
        : name(object.name)
        , id(object.id)
        , type(object.type)
    {
    }
    FindingObject(const QString& other = QString())
        : name(other)
    {
    }

    QString name;
    int id = 0; ///< of the object; 0 for something else
    std::optional<ObjectType> type;
};

} // namespace kpFormats
