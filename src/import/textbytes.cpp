#include "textbytes.h"

#include <QTextCodec>

#include <algorithm>
#include <cstring>

TextBytes::TextBytes(QIODevice &device) : device(device)
{
    detectEncoding();
}

TextBytes::~TextBytes() = default;

void TextBytes::detectEncoding()
{
    const QByteArray mark = device.peek(4);
    textCodec = QTextCodec::codecForUtfText(mark, QTextCodec::codecForLocale());
    decoder.reset();
    transcoded.clear();
    halfCharacter.clear();
    if (mark.startsWith("\xEF\xBB\xBF")) {
        device.skip(3);
    } else if (textCodec->name().startsWith("UTF-16") || textCodec->name().startsWith("UTF-32")) {
        decoder.reset(textCodec->makeDecoder());
        textCodec = QTextCodec::codecForName("UTF-8");
    }
}

void TextBytes::rewind()
{
    device.seek(0);
    detectEncoding();
}

qint64 TextBytes::read(char *to, int maximum)
{
    constexpr qint64 blockSize = 256LL * 1024;
    if (!decoder)
        return device.read(to, maximum);
    while (transcoded.isEmpty()) {
        const QByteArray block = device.read(blockSize);
        if (block.isEmpty())
            return 0;
        QString text = halfCharacter + decoder->toUnicode(block);
        halfCharacter.clear();
        // A character beyond 16 bits may be cut by the end of the block.
        if (!text.isEmpty() && text.at(text.size() - 1).isHighSurrogate()) {
            halfCharacter = text.right(1);
            text.chop(1);
        }
        transcoded = text.toUtf8();
    }
    const int bytes = std::min(maximum, int(transcoded.size()));
    std::memcpy(to, transcoded.constData(), std::size_t(bytes));
    transcoded.remove(0, bytes);
    return bytes;
}
