// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include <QString>

#include <stdexcept>

namespace refhost
{

/// Why a command does nothing.
class Refusal : public std::runtime_error
{
public:
    Refusal(int code, const QString& error)
        : std::runtime_error(error.toStdString())
        , m_code(code)
    {
    }

    /// The exit code.
    int code() const { return m_code; }

private:
    int m_code;
};

} // namespace refhost
