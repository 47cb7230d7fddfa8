// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QByteArray>
#include <QString>

#include <gdal_priv.h>

namespace kpFormats
{

/// Registers GDAL's drivers the first time it is called. Not done at start: it takes longer than most commands.
KPFORMATS_EXPORT void registerGdalDrivers();

/// Keeps GDAL's messages off the terminal while it lives. Who wants to tell its warnings collects them in a GdalWarnings.
class KPFORMATS_EXPORT QuietGdal
{
public:
    QuietGdal();
    ~QuietGdal();
    QuietGdal(const QuietGdal&) = delete;
    QuietGdal& operator=(const QuietGdal&) = delete;

    /// GDAL's last error in one line; empty when there was none.
    static QString lastMessage();
};

/// Sets a configuration option of GDAL for this thread while it lives.
class KPFORMATS_EXPORT GdalOption
{
public:
    GdalOption(const char* key, const char* value);
    ~GdalOption();
    GdalOption(const GdalOption&) = delete;
    GdalOption& operator=(const GdalOption&) = delete;

private:
    QByteArray m_key;
    QByteArray m_earlier; ///< null when it was not set
};

} // namespace kpFormats
