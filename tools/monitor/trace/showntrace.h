#pragma once

#include "notewriter.h"
#include "notices.h"
#include "tracetimeline.h"

#include <QObject>
#include <QString>

/// One trace that the window shows: the recording, or what was opened. Whoever has brought it keeps
/// what it needs in a class derived from this one.
class ShownTrace : public QObject
{
    Q_OBJECT
public:
    /// \a title is short, for a tab.
    ShownTrace(const TraceTimeline &timeline, const QString &title, QObject *parent = nullptr);

    const TraceTimeline &timeline() const { return ownTimeline; }
    const QString &title() const { return ownTitle; }

    /// Where it comes from, as whole paths; empty for a recording.
    virtual QStringList paths() const { return {}; }

    /// Whether messages may still come: a recording that runs, or an import.
    virtual bool isGrowing() const { return false; }

    /// Whether closing it now would lose messages or notes that are nowhere else.
    virtual bool isUnsaved() const { return false; }

    /// Have the message at \a position get another note or bookmark, in the background; an empty
    /// text takes it away. What fails is told by a notice.
    void setNote(quint64 position, const QString &text);
    void setBookmark(quint64 position, const QString &text);

    /// How often notes and bookmarks were set so far.
    int marksSet() const { return set; }
    /// The first \a count of them are kept elsewhere.
    void setMarksKept(int count) { kept = count; }

signals:
    void titleChanged();
    /// A note or bookmark was written, or could not be; it shows after a refresh of the timeline.
    void marksChanged();
    /// Something for the user; for the window to show.
    void notice(const Notice &notice);

protected:
    void setTitle(const QString &title);
    bool hasUnkeptMarks() const { return set != kept; }

private:
    void tellEnd(const NoteWriter::Change &change, const QString &error);

    const TraceTimeline ownTimeline;
    QString ownTitle;
    int set = 0;
    int kept = 0;
    NoteWriter writer;
};
