// SPDX-License-Identifier: MIT
#include "geo/GdalSession.h"

#include "geo/GdalWarnings.h"

#include "geo/LoadLimits.h"

#include <QFileInfo>

namespace kpFormats
{

void registerGdalDrivers()
{
    static const bool registered = [] {
        // It tells of every driver that is switched off and was not there.
        const QuietGdal quiet;
        const GdalWarnings ofNobody;
        GDALAllRegister();
        limitDrivers();
        return true;
    }();
    static_cast<void>(registered);
}

QuietGdal::QuietGdal()
{
    CPLPushErrorHandler([](CPLErr severity, CPLErrorNum, const char* message) {
        if (severity == CE_Warning)
            GdalWarnings::note(message);
    });
    CPLErrorReset();
}

QuietGdal::~QuietGdal()
{
    CPLPopErrorHandler();
}

QString QuietGdal::lastMessage()
{
    return QString::fromUtf8(CPLGetLastErrorMsg()).simplified();
}

GdalOption::GdalOption(const char* key, const char* value)
    : m_key(key)
    , m_earlier(CPLGetThreadLocalConfigOption(key, nullptr))
{
    CPLSetThreadLocalConfigOption(key, value);
}

GdalOption::~GdalOption()
{
    CPLSetThreadLocalConfigOption(m_key.constData(), m_earlier.isNull() ? nullptr : m_earlier.constData());
}

} // namespace kpFormats
