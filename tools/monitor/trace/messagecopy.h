#pragma once

#include <QString>
#include <QVector>

class MessageModel;
class QHeaderView;

/// Messages as text for the clipboard.
namespace MessageCopy {

/// How many are copied at most; files are for more.
constexpr int most = 10000;

/// The columns that \a header shows, in its order, with tabs between them and a line for each
/// message; in front of them the titles where there is more than one message.
QString asShown(const MessageModel &model, const QHeaderView &header,
                const QVector<quint64> &positions);
/// As candump writes a log. \a leftOut counts messages that it has no words for.
QString asCandump(const MessageModel &model, const QVector<quint64> &positions, quint64 *leftOut);

} // namespace MessageCopy
