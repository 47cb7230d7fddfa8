// SPDX-License-Identifier: MIT
#pragma once

#include "geo/CoordinateTransform.h"

#include <QString>

#include <map>
#include <memory>

namespace kpFormats
{

/// The ways from many coordinate systems to one; each is looked for once, which takes PROJ a while.
class TransformCache
{
public:
    /// \a target as WKT; empty: positions stay as they are.
    explicit TransformCache(QString target)
        : m_target(std::move(target))
    {
    }

    /// The way from a system given as WKT; null when positions stay as they are.
    /// \throws std::runtime_error when there is none
    const CoordinateTransform* from(const QString& wkt)
    {
        if (m_target.isEmpty() || wkt.isEmpty())
            return nullptr;
        std::unique_ptr<CoordinateTransform>& transform = m_transforms[wkt];
        if (!transform)
            transform = std::make_unique<CoordinateTransform>(wkt, m_target);
        return transform->isIdentity() ? nullptr : transform.get();
    }

private:
    QString m_target;
    std::map<QString, std::unique_ptr<CoordinateTransform>> m_transforms;
};

} // namespace kpFormats
