// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef KPBASEEXPORT_LIBRARY
#define KPBASEEXPORT_EXPORT Q_DECL_EXPORT
#else
#define KPBASEEXPORT_EXPORT Q_DECL_IMPORT
#endif
