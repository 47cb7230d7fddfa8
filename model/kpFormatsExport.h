// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef KPFORMATS_LIBRARY
#define KPFORMATS_EXPORT Q_DECL_EXPORT
#else
#define KPFORMATS_EXPORT Q_DECL_IMPORT
#endif
