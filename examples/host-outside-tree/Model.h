// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <string>
#include <vector>

/// One horizon: points in metres, z up, with one measured value each.
struct Horizon
{
    using Numbers = std::shared_ptr<const std::vector<double>>;

    int id = 0;
    QString name;
    Numbers x;
    Numbers y;
    Numbers z;
    QString valueName;
    Numbers value;

    int size() const { return static_cast<int>(x->size()); }
};

/// What this host works on.
struct Model
{
    std::vector<Horizon> horizons;

    const Horizon* find(int id) const
    {
        for (const Horizon& horizon : horizons) {
            if (horizon.id == id)
                return &horizon;
        }
        return nullptr;
    }
};

/// The key under which savers name the one type of object that there is.
inline const std::string horizonType = "horizon";
