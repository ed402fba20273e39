#pragma once

#include <QString>
#include <QTemporaryDir>

/// A file that gets its name only when it is complete, and is gone when it never is. Lies in a
/// hidden folder beside its place until then.
class PartFile
{
public:
    /// \a suffix is what the name of the file ends in meanwhile, without the point.
    PartFile(const QString &target, const QString &suffix);

    /// False when nothing can be written there.
    bool isValid() const { return error.isEmpty(); }
    QString name() const { return part; }
    /// Replaces what is at its place. False when that fails.
    bool putInPlace();
    QString errorText() const { return error; }

private:
    const QString target;
    QTemporaryDir folder;
    QString part;
    QString error;
};
