// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <utility>

namespace kpFormats
{

/// Owns a file descriptor.
class KPFORMATS_EXPORT Descriptor
{
public:
    explicit Descriptor(int number = -1)
        : m_number(number)
    {
    }
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    /// \returns 0 or the error number
    int close();

private:
    int m_number;
};

} // namespace kpFormats
