// SPDX-License-Identifier: MIT
#include "export/platform/Descriptor.h"

#include <cerrno>

#include <unistd.h>

namespace kpFormats
{

int Descriptor::close()
{
    const int number = std::exchange(m_number, -1);
    return number < 0 || ::close(number) == 0 ? 0 : errno;
}

} // namespace kpFormats
