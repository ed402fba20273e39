#include "filenames.h"

#include <QFile>

namespace FileNames {

QString cutToBytes(QString name, int bytes)
{
    while (!name.isEmpty() && QFile::encodeName(name).size() > bytes) {
        // A character beyond 16 bits consists of two halves, which go together.
        const bool isHalf = name.size() > 1 && name.at(name.size() - 1).isLowSurrogate();
        name.chop(isHalf ? 2 : 1);
    }
    return name;
}

} // namespace FileNames
