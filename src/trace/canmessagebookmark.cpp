#include "canmessagebookmark.h"

#include <utility>

namespace {
constexpr qint32 streamMagic = 0xB00A;
constexpr qint8 streamFormVersion = 1;
} // namespace

CanMessageBookmark::CanMessageBookmark() = default;

CanMessageBookmark::CanMessageBookmark(unsigned int messageNumber, QString text)
    : number(messageNumber), content(std::move(text))
{
}

unsigned int CanMessageBookmark::messageNumber() const
{
    return number;
}

QString CanMessageBookmark::text() const
{
    return content;
}

bool CanMessageBookmark::isValid() const
{
    return !content.isEmpty();
}

bool CanMessageBookmark::operator==(const CanMessageBookmark &other) const
{
    return number == other.number && content == other.content;
}

void CanMessageBookmark::insertToDataStream(QDataStream &stream) const
{
    stream << streamMagic << streamFormVersion << qint32(number) << content;
}

void CanMessageBookmark::extractFromDataStream(QDataStream &stream)
{
    qint32 magic = 0;
    stream >> magic;
    if (magic != streamMagic)
        return;
    qint8 formVersion = 0;
    stream >> formVersion;
    if (formVersion != streamFormVersion)
        return;
    stream >> number >> content;
}

QDataStream &operator<<(QDataStream &stream, const CanMessageBookmark &bookmark)
{
    bookmark.insertToDataStream(stream);
    return stream;
}

QDataStream &operator>>(QDataStream &stream, CanMessageBookmark &bookmark)
{
    bookmark.extractFromDataStream(stream);
    return stream;
}
