// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef KPBASEEXPORTCORE_LIBRARY
#define KPBASEEXPORTCORE_EXPORT Q_DECL_EXPORT
#else
#define KPBASEEXPORTCORE_EXPORT Q_DECL_IMPORT
#endif
