// SPDX-License-Identifier: MIT
#pragma once

#include "geo/CoordinateTransform.h"
#include "model/ModelObject.h"

#include <QHash>
#include <QString>

#include <array>
#include <memory>
#include <vector>

namespace kpFormats
{

/// The coordinate system of an output and the ways to it.
class OgrSystems
{
public:
    /// \a target as WKT; empty when there is none, then nothing is transformed. Objects without a system of their own
    /// are taken to be in \a assumed. On the globe, heights are in metres and positions beyond 180 or 90 degrees have no
    /// place.
    OgrSystems(QString target, QString assumed, bool onGlobe = false);

    const QString& target() const { return m_target; }
    /// Whether the target was chosen for the objects, not by the format.
    bool followsObjects() const { return m_target == m_assumed; }
    /// From the object's system to the target, or back; null when nothing is to be done.
    /// \throws std::runtime_error when there is no way
    const CoordinateTransform* to(const ModelObject& object);
    const CoordinateTransform* back(const ModelObject& object);
    bool isOnGlobe() const { return m_onGlobe; }
    /// What heights are multiplied with.
    double heightFactor(const ModelObject& object) const;

private:
    using Ways = QHash<QString, std::shared_ptr<CoordinateTransform>>;
    const CoordinateTransform* way(Ways& ways, const ModelObject& object, bool back);

    QString m_target;
    QString m_assumed;
    bool m_onGlobe;
    Ways m_to;
    Ways m_back;
};

/// The system that a file says it is in.
struct WrittenSystem
{
    QString wkt;    ///< empty when the format has no way to say it
    double off = 0; ///< metres that it puts positions from where they are
};

/// How far apart two systems put the same numbers, in metres on the globe, at the worst of the places that have one; NaN
/// when there is no way to tell.
double metresApart(const QString& wkt, const QString& other, const std::vector<std::array<double, 2>>& places);

/// The vertices of an object in the system of the output, a window of them at a time.
class OgrVertices
{
public:
    explicit OgrVertices(OgrSystems& systems)
        : m_systems(systems)
    {
    }

    void start(const ModelObject& object);
    /// Position of a vertex. x and y are NaN when it has no place in the output's system; z is NaN when unknown.
    const std::array<double, 3>& at(std::size_t vertex);

private:
    void fill(std::size_t vertex);

    OgrSystems& m_systems;
    const ModelObject* m_object = nullptr;
    const CoordinateTransform* m_transform = nullptr;
    double m_heightFactor = 1.0;
    std::size_t m_first = 0;
    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<double> m_z;
    std::array<double, 3> m_position{};
};

} // namespace kpFormats
