#include "filterwords.h"

#include <QCoreApplication>
#include <QStandardItemModel>

namespace {

struct Word
{
    const char *word;
    const char *meaning;
};

constexpr Word words[] = {
    {"id", QT_TRANSLATE_NOOP("FilterWords", "identifier, hexadecimal: id==1a0, id in 100..1ff")},
    {"line", QT_TRANSLATE_NOOP("FilterWords", "bus line: line==0")},
    {"len", QT_TRANSLATE_NOOP("FilterWords", "bytes of payload: len<8")},
    {"number", QT_TRANSLATE_NOOP("FilterWords", "message number: number>=1000")},
    {"time", QT_TRANSLATE_NOOP("FilterWords", "time stamp as recorded, in seconds: time 12.5..13")},
    {"b0", QT_TRANSLATE_NOOP("FilterWords", "first byte, and so on to b63: b0==ff, b3&f0==a0")},
    {"ext", QT_TRANSLATE_NOOP("FilterWords", "extended identifiers")},
    {"fd", QT_TRANSLATE_NOOP("FilterWords", "CAN FD frames")},
    {"brs", QT_TRANSLATE_NOOP("FilterWords", "bit rate switch")},
    {"esi", QT_TRANSLATE_NOOP("FilterWords", "error state indicator")},
    {"rtr", QT_TRANSLATE_NOOP("FilterWords", "remote frames")},
    {"err", QT_TRANSLATE_NOOP("FilterWords", "error frames")},
    {"tx", QT_TRANSLATE_NOOP("FilterWords", "sent by this node")},
    {"data~\"\"", QT_TRANSLATE_NOOP("FilterWords", "these bytes anywhere: data~\"11 ?? 33\"")},
    {"changed", QT_TRANSLATE_NOOP("FilterWords", "other payload than the message before")},
    {"note", QT_TRANSLATE_NOOP("FilterWords", "messages with a note")},
    {"note~\"\"", QT_TRANSLATE_NOOP("FilterWords", "notes with this text: note~\"door\"")},
    {"and", QT_TRANSLATE_NOOP("FilterWords", "both")},
    {"or", QT_TRANSLATE_NOOP("FilterWords", "one of them")},
    {"not", QT_TRANSLATE_NOOP("FilterWords", "all others")},
    {"in", QT_TRANSLATE_NOOP("FilterWords", "in one of these ranges")},
};

} // namespace

QAbstractItemModel *FilterWords::newModel(QObject *parent)
{
    auto *model = new QStandardItemModel(parent);
    for (const Word &word : words) {
        const QString text = QString::fromLatin1(word.word);
        auto *item = new QStandardItem(text.leftJustified(10)
                                       + QCoreApplication::translate("FilterWords", word.meaning));
        item->setData(text, wordRole);
        model->appendRow(item);
    }
    return model;
}

int FilterWords::beginOfWord(const QString &text, int cursor)
{
    if (text.left(cursor).count(QLatin1Char('"')) % 2 != 0)
        return cursor;
    int begin = cursor;
    while (begin > 0 && text.at(begin - 1).isLetterOrNumber())
        --begin;
    // Numbers and what follows an operator are values.
    const bool isWord = begin < cursor && text.at(begin).isLetter()
        && (begin == 0 || QStringLiteral(" (!&|").contains(text.at(begin - 1)));
    return isWord ? begin : cursor;
}
