// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef KPHOST_UI_LIBRARY
#define KPHOST_UI_EXPORT Q_DECL_EXPORT
#else
#define KPHOST_UI_EXPORT Q_DECL_IMPORT
#endif
