#pragma once

#include <QObject>
#include <QStringList>

/// Looks which plug-ins and interfaces there are, without waiting for them.
class InterfaceFinder : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Looks anew. What an earlier look still brings is passed over.
    void look();

signals:
    /// One signal for each plug-in; \a descriptions belong to the names and may be empty.
    void found(const QString &plugin, const QStringList &names, const QStringList &descriptions);
    void done();

private:
    void takeFound(int which, const QString &plugin, const QStringList &names,
                   const QStringList &descriptions);
    void takeDone(int which);

    int current = 0;
};
