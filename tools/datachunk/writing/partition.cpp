#include "partition.h"

#include "terminal.h"

#include <QDate>

namespace {

const QString sourceKey = QStringLiteral("source");
const QString dateKey = QStringLiteral("date");

// What a folder's name cannot hold, and what means something else to readers, as "%2F".
QString escaped(const QString &value)
{
    const QLatin1String special("\"#%'*/:=?\\{[]^\x7f");
    QString text;
    for (const QChar c : value) {
        if (c.unicode() < ' ' || special.contains(c))
            text += QLatin1Char('%')
                + QString::number(c.unicode(), 16).rightJustified(2, QLatin1Char('0')).toUpper();
        else
            text += c;
    }
    return text;
}

} // namespace

bool Partition::read(const QString &text)
{
    keys.clear();
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        const QString key = part.section(QLatin1Char('='), 0, 0);
        const bool isNamed = key == sourceKey && part.size() > key.size() + 1;
        if ((part != sourceKey && part != dateKey && !isNamed) || keys.contains(key)) {
            usageError(
                Cli::tr("--partition takes source, source=NAME and date, with commas between, not "
                        "\"%1\"")
                    .arg(text));
            return false;
        }
        keys.append(key);
        if (isNamed)
            source = part.mid(key.size() + 1);
    }
    return true;
}

qint64 Partition::dayOf(qint64 time)
{
    constexpr qint64 microsecondsPerDay = Q_INT64_C(86400000000);
    const qint64 day = time / microsecondsPerDay;
    return time % microsecondsPerDay < 0 ? day - 1 : day;
}

QString Partition::folderOf(const QString &trace, qint64 day) const
{
    const QDate date = QDate(1970, 1, 1).addDays(day);
    QStringList folders;
    for (const QString &key : keys) {
        const QString value = key == dateKey ? date.toString(Qt::ISODate)
            : source.isEmpty()               ? trace
                                             : source;
        folders.append(key + QLatin1Char('=') + escaped(value));
    }
    return folders.join(QLatin1Char('/'));
}

bool Partition::fits(const QString &folder) const
{
    QStringList found;
    const QStringList parts = folder.split(QLatin1Char('/'));
    for (const QString &part : parts) {
        if (part.contains(QLatin1Char('=')))
            found.append(part.section(QLatin1Char('='), 0, 0));
    }
    return found == keys;
}
