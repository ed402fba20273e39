#pragma once

#include <QtGlobal>

#if defined(FRAMEKIT_LIBRARY)
#define FRAMEKIT_EXPORT Q_DECL_EXPORT
#else
#define FRAMEKIT_EXPORT Q_DECL_IMPORT
#endif
