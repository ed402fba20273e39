#pragma once

#include <QtGlobal>

#if defined(DATACHUNK_LIBRARY)
#define DATACHUNK_EXPORT Q_DECL_EXPORT
#else
#define DATACHUNK_EXPORT Q_DECL_IMPORT
#endif
