#include "formatbox.h"

#include <QSettings>

#include <algorithm>

namespace {

struct Row
{
    const char *name; ///< as TargetFormat has it
    const char *title;
    const char *limits; ///< may be null
};

constexpr Row rows[] = {
    {"dck", QT_TRANSLATE_NOOP("FormatBox", "Chunk file (.dck)"), nullptr},
    {"txt", QT_TRANSLATE_NOOP("FormatBox", "Text (.txt)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep bookmarks.")},
    {"asc", QT_TRANSLATE_NOOP("FormatBox", "Vector ASC (.asc)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep notes and bookmarks.")},
    {"candump", QT_TRANSLATE_NOOP("FormatBox", "candump log (.log)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep directions, notes and bookmarks.")},
    {"candump-screen", QT_TRANSLATE_NOOP("FormatBox", "candump on the screen (.txt)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep notes and bookmarks.")},
    {"csv", QT_TRANSLATE_NOOP("FormatBox", "Comma-separated values (.csv)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep bookmarks.")},
    {"jsonl", QT_TRANSLATE_NOOP("FormatBox", "JSON lines (.jsonl)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep bookmarks.")},
    {"parquet", QT_TRANSLATE_NOOP("FormatBox", "Parquet (.parquet)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep bookmarks.")},
    {"pcapng", QT_TRANSLATE_NOOP("FormatBox", "Packet capture (.pcapng)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep bookmarks.")},
    {"trc21", QT_TRANSLATE_NOOP("FormatBox", "PEAK trace 2.1 (.trc)"),
     QT_TRANSLATE_NOOP("FormatBox", "Does not keep notes and bookmarks.")},
    {"trc11", QT_TRANSLATE_NOOP("FormatBox", "PEAK trace 1.1 (.trc)"),
     QT_TRANSLATE_NOOP("FormatBox",
                       "Does not keep CAN FD frames, bus lines, notes and bookmarks.")},
};

const QString lastFormat = QStringLiteral("files/format");

} // namespace

FormatBox::FormatBox(QWidget *parent) : QComboBox(parent)
{
    setObjectName(QStringLiteral("format"));
    for (const Row &row : rows)
        addItem(tr(row.title), QString::fromLatin1(row.name));
    setCurrentIndex(std::max(0, findData(QSettings().value(lastFormat))));
}

TargetFormat FormatBox::format() const
{
    return TargetFormat::named(currentData().toString()).value_or(TargetFormat());
}

void FormatBox::setFormat(const TargetFormat &format)
{
    setCurrentIndex(std::max(0, findData(format.name())));
}

QString FormatBox::limits() const
{
    const char *text = rows[currentIndex()].limits;
    return text ? tr(text) : QString();
}

bool FormatBox::hasDeltaTimes() const
{
    const TargetFormat chosen = format();
    return chosen.kind == TargetFormat::Foreign
        && (chosen.foreign == TraceExport::CandumpScreen
            || chosen.foreign == TraceExport::VectorAsc);
}

bool FormatBox::isOwnText() const
{
    return format().kind == TargetFormat::OwnText;
}

void FormatBox::remember() const
{
    QSettings().setValue(lastFormat, currentData());
}
