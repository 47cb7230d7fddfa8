// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef KPHOST_DATA_LIBRARY
#define KPHOST_DATA_EXPORT Q_DECL_EXPORT
#else
#define KPHOST_DATA_EXPORT Q_DECL_IMPORT
#endif
