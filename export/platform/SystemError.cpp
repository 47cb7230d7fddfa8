// SPDX-License-Identifier: MIT
#include "export/platform/SystemError.h"

#include <cerrno>
#include <cstring>

namespace kpFormats
{

QString errorText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

QString writingCure(int number)
{
    switch (number) {
    case ENOSPC:
    case EDQUOT:
        return QStringLiteral("make room on the disk or choose another");
    case EFBIG:
        return QStringLiteral("raise the limit of file sizes, or choose a disk that takes larger files");
    case EACCES:
    case EPERM:
        return QStringLiteral("change the permissions or choose another directory");
    case EROFS:
        return QStringLiteral("the disk is read-only: choose another");
    case ENOENT:
        return QStringLiteral("create the directory and export again");
    case ENAMETOOLONG:
        return QStringLiteral("choose a shorter name");
    case EMFILE:
    case ENFILE:
        return QStringLiteral("close other programs");
    default:
        return QStringLiteral("check the disk or choose another");
    }
}

} // namespace kpFormats
