// SPDX-License-Identifier: MIT
#include "export/platform/FileIdentity.h"

#include <QList>

#include <algorithm>

#include <sys/stat.h>

namespace kpFormats
{

FileIdentity::FileIdentity(const struct stat& status)
{
    // Not the device: it may have another number after the next start of the system.
    for (const auto number : {static_cast<qint64>(status.st_ino), static_cast<qint64>(status.st_size),
                              static_cast<qint64>(status.st_mtim.tv_sec), static_cast<qint64>(status.st_mtim.tv_nsec)})
        m_text += (m_text.isEmpty() ? QByteArray() : QByteArray(":")) + QByteArray::number(number);
}

std::optional<FileIdentity> FileIdentity::of(const QByteArray& text)
{
    constexpr int parts = 4;
    const QList<QByteArray> numbers = text.split(':');
    const bool sound =
        numbers.size() == parts && std::all_of(numbers.begin(), numbers.end(), [](const QByteArray& part) {
            bool isNumber = false;
            part.toLongLong(&isNumber);
            return isNumber;
        });
    if (!sound)
        return {};
    FileIdentity identity;
    identity.m_text = text;
    return identity;
}

} // namespace kpFormats
