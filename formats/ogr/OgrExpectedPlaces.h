// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExpectedPlaces.h"
#include "formats/ogr/OgrSystems.h"

namespace kpFormats
{

/// Where the vertices of an object must be in a vector file.
class OgrExpectedPlaces : public ExpectedPlaces
{
public:
    /// \a object outlives the places. \throws std::runtime_error when there is no way to the output's system
    OgrExpectedPlaces(const ModelObject& object, OgrSystems& systems)
        : ExpectedPlaces({object.x->data(), object.y->data(), object.z->data()}, object.x->size(),
                         {systems.to(object), 1.0, systems.heightFactor(object), false, systems.isOnGlobe()}, 4096)
        , m_object(&object)
    {
    }

    const ModelObject& object() const { return *m_object; }

private:
    const ModelObject* m_object;
};

} // namespace kpFormats
