// SPDX-License-Identifier: MIT
#include "core/TruePath.h"

#include <QFile>

namespace kpBaseExport
{

std::filesystem::path truePath(const QString& name)
{
#ifdef Q_OS_WIN
    return name.toStdWString();
#else
    return QFile::encodeName(name).toStdString();
#endif
}

} // namespace kpBaseExport
