// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

namespace kpFormats
{

/// A setting that is unknown or has a value that it cannot take; what() names both and the cure.
class SettingsError : public std::runtime_error
{
public:
    explicit SettingsError(const QString& message)
        : std::runtime_error(message.toStdString())
    {
    }
};

} // namespace kpFormats
