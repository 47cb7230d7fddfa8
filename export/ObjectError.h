// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportError.h"
#include "model/ModelObject.h"

namespace kpFormats
{

/// One object cannot be written; the others of the file can. The run leaves it out, writes the file again without it
/// and reports it.
class ObjectError : public ExportError
{
public:
    ObjectError(const ModelObject& object, const QString& cause, const QString& cure)
        : ExportError(object.name, cause, cure)
        , m_object(&object)
    {
    }

    const ModelObject* object() const { return m_object; }

private:
    const ModelObject* m_object;
};

} // namespace kpFormats
