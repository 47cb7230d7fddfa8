// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

namespace refhost
{

/// A file that could not be loaded: "FILE: what is wrong (what to do)".
class LoadError : public std::runtime_error
{
public:
    LoadError(const QString& file, const QString& cause, const QString& cure);
};

} // namespace refhost
