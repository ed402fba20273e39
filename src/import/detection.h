#pragma once

#include "datachunkhelper.h"

#include <QIODevice>

/// What DatachunkHelper::getImportFileType() would say of a file with this name and this content,
/// which is read from its beginning.
DatachunkHelper::ImportFileType strictTypeOf(const QString &name, QIODevice &content);
