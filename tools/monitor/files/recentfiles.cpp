#include "recentfiles.h"

#include "plaintexts.h"

#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace {

constexpr int mostKept = 10;
constexpr int mostTogether = 20; // more paths than that would fill the settings
const QString key = QStringLiteral("files/recent");

// An entry is the paths of one trace, one a line.
QStringList kept()
{
    return QSettings().value(key).toStringList();
}

QString entryOf(const QStringList &paths)
{
    return paths.join(QLatin1Char('\n'));
}

// A mnemonic is not wanted where a name has an ampersand.
QString menuText(const QStringList &paths)
{
    const QString folder = QFileInfo(paths.first()).path();
    return QStringLiteral("%1 — %2")
        .arg(shortNames(paths), folder)
        .replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

RecentFiles::RecentFiles(QWidget *window) : QObject(window), ownMenu(new QMenu(window))
{
    connect(ownMenu, &QMenu::aboutToShow, this, &RecentFiles::fill);
}

void RecentFiles::add(const QStringList &paths)
{
    if (paths.isEmpty() || paths.size() > mostTogether)
        return;
    QStringList all = kept();
    all.removeAll(entryOf(paths));
    all.prepend(entryOf(paths));
    QSettings().setValue(key, QStringList(all.mid(0, mostKept)));
}

void RecentFiles::remove(const QStringList &paths)
{
    QStringList all = kept();
    all.removeAll(entryOf(paths));
    QSettings().setValue(key, all);
}

void RecentFiles::fill()
{
    ownMenu->clear();
    const QStringList all = kept();
    for (const QString &entry : all) {
        const QStringList paths = entry.split(QLatin1Char('\n'));
        if (!entry.isEmpty())
            ownMenu->addAction(menuText(paths), this, [this, paths] { emit chosen(paths); });
    }
    if (ownMenu->isEmpty())
        ownMenu->addAction(tr("None yet"))->setEnabled(false);
    else
        ownMenu->addSeparator();
    if (!all.isEmpty())
        ownMenu->addAction(tr("&Forget them"), this, [] { QSettings().remove(key); });
}
