// SPDX-License-Identifier: MIT
#include "ogr/OGRMessageCatcher.h"

#include <cpl_error.h>

#include <utility>

namespace kpBaseExport
{

namespace
{

void CPL_STDCALL catchMessage(CPLErr severity, CPLErrorNum, const char* message)
{
    if (severity == CE_Debug)
        return;
    static_cast<OGRMessageCatcher*>(CPLGetErrorHandlerUserData())->note(message, severity >= CE_Failure);
}

} // namespace

OGRMessageCatcher::OGRMessageCatcher(bool active)
    : m_active(active)
{
    if (m_active)
        CPLPushErrorHandlerEx(catchMessage, this);
}

OGRMessageCatcher::~OGRMessageCatcher()
{
    if (m_active)
        CPLPopErrorHandler();
}

QString OGRMessageCatcher::take()
{
    m_failed = false;
    return std::exchange(m_message, QString());
}

void OGRMessageCatcher::note(const char* message, bool failure)
{
    // The first error says what went wrong; what follows are its consequences.
    if (m_failed)
        return;
    m_message = QString::fromUtf8(message);
    m_failed = failure;
}

} // namespace kpBaseExport
