#pragma once

#include <QByteArray>
#include <QtEndian>

#include <charconv>
#include <cstring>
#include <iterator>
#include <string_view>

/// Room for what is written of one message but its note, which may be of any length. The longest is
/// a CAN FD frame as JSON, 500 bytes; nothing checks the end.
class LineBuffer
{
public:
    void add(char c) { *end++ = c; }

    template <int size> void add(const char (&literal)[size])
    {
        std::memcpy(end, literal, size - 1);
        end += size - 1;
    }

    void addText(std::string_view text)
    {
        std::memcpy(end, text.data(), text.size());
        end += text.size();
    }

    /// A fixed number of bytes, least significant first.
    template <typename Number> void addLittleEndian(Number value)
    {
        qToLittleEndian(value, end);
        end += sizeof(Number);
    }

    template <typename Number> void addBigEndian(Number value)
    {
        qToBigEndian(value, end);
        end += sizeof(Number);
    }

    template <typename Number> void addNumber(Number value)
    {
        end = std::to_chars(end, std::end(bytes), value).ptr;
    }

    /// With zeros in front up to \a digits, which have to suffice.
    void addDigits(quint32 value, int digits)
    {
        for (int i = digits - 1; i >= 0; --i, value /= 10)
            end[i] = char('0' + value % 10);
        end += digits;
    }

    /// As above, in large hexadecimal digits.
    void addHex(quint32 value, int digits)
    {
        for (int i = digits - 1; i >= 0; --i, value >>= 4)
            end[i] = largeDigits[value & 15];
        end += digits;
    }

    void addHex(quint32 value)
    {
        int digits = 1;
        while (digits < 8 && value >> (4 * digits) != 0)
            ++digits;
        addHex(value, digits);
    }

    void addBytes(const quint8 *data, int count)
    {
        for (int i = 0; i < count; ++i)
            addByte(data[i], largeDigits);
    }

    void addSmallBytes(const quint8 *data, int count)
    {
        for (int i = 0; i < count; ++i)
            addByte(data[i], "0123456789abcdef");
    }

    /// With a blank in front of each byte.
    void addSpacedBytes(const quint8 *data, int count)
    {
        for (int i = 0; i < count; ++i) {
            add(' ');
            addByte(data[i], largeDigits);
        }
    }

    /// A time in microseconds as seconds with six digits behind the point.
    void addSeconds(qint64 microseconds)
    {
        constexpr qint64 million = 1000000;
        if (microseconds < 0)
            add('-');
        const quint64 time = quint64(microseconds < 0 ? -microseconds : microseconds);
        addNumber(time / million);
        add('.');
        addDigits(quint32(time % million), 6);
    }

    void fill(char c, int count)
    {
        std::memset(end, c, std::size_t(count));
        end += count;
    }

    /// Fills the line with blanks up to \a size.
    void padTo(int size)
    {
        if (size > count())
            fill(' ', size - count());
    }

    /// Moves what was added since \a start to the right, so that it ends at \a size.
    void alignRight(int start, int size, char filler = ' ')
    {
        const int blanks = size - count();
        if (blanks <= 0)
            return;
        std::memmove(bytes + start + blanks, bytes + start, std::size_t(count() - start));
        std::memset(bytes + start, filler, std::size_t(blanks));
        end += blanks;
    }

    int count() const { return int(end - bytes); }

    void flushTo(QByteArray &text)
    {
        text.append(bytes, count());
        end = bytes;
    }

private:
    void addByte(quint8 byte, const char *digits)
    {
        *end++ = digits[byte >> 4];
        *end++ = digits[byte & 15];
    }

    static constexpr char largeDigits[] = "0123456789ABCDEF";

    char bytes[1024];
    char *end = bytes;
};
