// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef KPFORMATSUI_LIBRARY
#define KPFORMATSUI_EXPORT Q_DECL_EXPORT
#else
#define KPFORMATSUI_EXPORT Q_DECL_IMPORT
#endif
