// SPDX-License-Identifier: MIT
#include "cli/StartUp.h"

#include <QCoreApplication>
#include <QTextCodec>

namespace refhost
{

void nameApplication()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QCoreApplication::setOrganizationName(QStringLiteral("kpexport"));
    QCoreApplication::setApplicationName(QStringLiteral("kpexport"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KP_VERSION));
}

} // namespace refhost
