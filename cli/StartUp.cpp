// SPDX-License-Identifier: MIT
#include "cli/StartUp.h"

#include "geo/LoadLimits.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <cstring>

namespace refhost
{

using namespace kpFormats;

void nameApplication()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QCoreApplication::setOrganizationName(QStringLiteral("kpexport"));
    QCoreApplication::setApplicationName(QStringLiteral("kpexport"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KP_VERSION));
}

void limitLoading(bool allowNetwork, bool allowOutside)
{
    if (!allowNetwork)
        forbidNetwork();
    if (!allowOutside)
        forbidOutside();
}

int foreignArgument(int argc, const char* const* argv)
{
    const QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    for (int number = 1; number < argc; ++number) {
        QTextCodec::ConverterState state;
        codec->toUnicode(argv[number], static_cast<int>(std::strlen(argv[number])), &state);
        if (state.invalidChars > 0 || state.remainingChars > 0)
            return number;
    }
    return 0;
}

} // namespace refhost
