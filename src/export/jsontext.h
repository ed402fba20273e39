#pragma once

#include <QByteArray>
#include <QJsonDocument>

/// A document in one line, without a line end. Control characters above ASCII, which a terminal
/// obeys and JSON allows, are escaped as well.
inline QByteArray jsonText(const QJsonDocument &document)
{
    constexpr char firstByte = '\xC2'; // of the UTF-8 of U+0080 to U+009F
    constexpr uchar behindLast = 0xA0;
    constexpr char deletion = '\x7F';
    const QByteArray written = document.toJson(QJsonDocument::Compact);
    QByteArray text;
    text.reserve(written.size());
    for (int i = 0; i < written.size(); ++i) {
        const char c = written.at(i);
        if (c == deletion)
            text += "\\u007f";
        else if (c == firstByte && uchar(written.at(i + 1)) < behindLast)
            text += "\\u00" + QByteArray::number(uchar(written.at(++i)), 16);
        else
            text += c;
    }
    return text;
}
