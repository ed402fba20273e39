#include "plaintexts.h"

#include "pluralform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace {

struct Files
{
    Q_DECLARE_TR_FUNCTIONS(Files)
};

} // namespace

QString messagesText(quint64 count)
{
    return Files::tr("%L1 messages", nullptr, pluralForm(count)).arg(count);
}

QString durationText(qint64 milliseconds)
{
    const qint64 seconds = (milliseconds + 999) / 1000;
    if (seconds < 60)
        return Files::tr("%1 s").arg(seconds);
    const qint64 minutes = (seconds + 59) / 60;
    if (minutes < 60)
        return Files::tr("%1 min").arg(minutes);
    return Files::tr("%1 h %2 min").arg(minutes / 60).arg(minutes % 60);
}

QString shortName(const QString &path)
{
    const QString name = QFileInfo(QDir::cleanPath(path)).fileName();
    return name.isEmpty() ? path : name;
}

QString shortNames(const QStringList &paths)
{
    if (paths.isEmpty())
        return {};
    const QString first = shortName(paths.first());
    const int more = int(paths.size()) - 1;
    return more == 0 ? first : Files::tr("%1 and %n more", nullptr, more).arg(first);
}

QString firstSentences(const QStringList &sentences)
{
    constexpr int mostShown = 3;
    const int more = int(sentences.size()) - mostShown;
    const QString shown = sentences.mid(0, mostShown).join(QLatin1Char(' '));
    return more > 0 ? shown + QLatin1Char(' ') + Files::tr("There are %n more.", nullptr, more)
                    : shown;
}
