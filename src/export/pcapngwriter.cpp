#include "framewriter.h"

#include "canframe.h"

#include <vector>

namespace {

enum BlockType : quint32 { InterfaceBlock = 1, PacketBlock = 6, SectionBlock = 0x0A0D0D0A };
enum OptionCode : quint16 {
    EndOfOptions = 0,
    Comment = 1,
    InterfaceName = 2,
    PacketFlags = 2,
    TimeResolution = 9
};

constexpr quint32 extendedFlag = 0x80000000;
constexpr quint32 remoteFlag = 0x40000000;
constexpr quint32 errorId = 0x20000080; // an error on the bus, whose payload has no meaning

constexpr int padded(int size)
{
    return (size + 3) / 4 * 4;
}

void addSection(LineBuffer &line)
{
    constexpr quint32 size = 28;
    line.addLittleEndian<quint32>(SectionBlock);
    line.addLittleEndian(size);
    line.addLittleEndian<quint32>(0x1A2B3C4D); // tells the order of the bytes
    line.addLittleEndian<quint16>(1);
    line.addLittleEndian<quint16>(0);
    line.addLittleEndian<qint64>(-1); // how long the section is, is not known
    line.addLittleEndian(size);
}

void addInterface(LineBuffer &line, quint16 busLine)
{
    constexpr quint16 socketCan = 227;
    constexpr char microseconds = 6;
    const QByteArray name = "can" + QByteArray::number(busLine);
    const auto size = quint32(20 + 4 + padded(name.size()) + 8 + 4);
    line.addLittleEndian<quint32>(InterfaceBlock);
    line.addLittleEndian(size);
    line.addLittleEndian<quint16>(socketCan);
    line.addLittleEndian<quint16>(0);
    line.addLittleEndian<quint32>(0); // packets of any size
    line.addLittleEndian<quint16>(InterfaceName);
    line.addLittleEndian(quint16(name.size()));
    line.addText({name.constData(), std::size_t(name.size())});
    line.fill(0, padded(name.size()) - name.size());
    line.addLittleEndian<quint16>(TimeResolution);
    line.addLittleEndian<quint16>(1);
    line.add(microseconds);
    line.fill(0, 3);
    line.addLittleEndian<quint32>(EndOfOptions);
    line.addLittleEndian(size);
}

// A frame as SocketCAN has it in memory, but with the identifier in the order of the network.
void addPacket(LineBuffer &line, const ExportFrame &frame, int room)
{
    quint32 id = frame.isError ? errorId : frame.id;
    id |= frame.extended ? extendedFlag : 0;
    id |= frame.remote ? remoteFlag : 0;
    line.addBigEndian(id);
    line.add(char(frame.length));
    line.add(char(frame.fd ? 4 | (frame.bitRateSwitch ? 1 : 0) | (frame.errorState ? 2 : 0) : 0));
    line.fill(0, 2);
    const int bytes = frame.remote ? 0 : frame.length;
    line.addText({reinterpret_cast<const char *>(frame.data), std::size_t(bytes)});
    line.fill(0, room - bytes);
}

class PcapngWriter : public FrameWriter
{
    void writeHeader(qint64, QByteArray &block) override
    {
        LineBuffer line;
        addSection(line);
        line.flushTo(block);
    }

    void writeFrame(ExportFrame &frame, const QString &note, LineBuffer &line,
                    QByteArray &block) override
    {
        constexpr int frontSize = 28; // of the block, up to the packet
        constexpr int headerSize = 8; // of the packet
        constexpr int classicRoom = 8;
        const int room = frame.fd ? CAN::maxDataBytes : classicRoom;
        const quint32 index = interfaceOf(frame.line, line);
        QByteArray comment;
        if (!note.isEmpty())
            comment = cut(note, frame);
        const int commentSize = comment.isEmpty() ? 0 : 4 + padded(comment.size());
        const auto size = quint32(frontSize + headerSize + room + commentSize + 8 + 4 + 4);
        const auto time = quint64(frame.time);
        line.addLittleEndian<quint32>(PacketBlock);
        line.addLittleEndian(size);
        line.addLittleEndian(index);
        line.addLittleEndian(quint32(time >> 32));
        line.addLittleEndian(quint32(time));
        line.addLittleEndian(quint32(headerSize + room));
        line.addLittleEndian(quint32(headerSize + room));
        addPacket(line, frame, room);
        addComment(comment, line, block);
        addFlags(line, frame.transmitted);
        line.addLittleEndian(size);
    }

    // An interface is described in front of its first packet.
    quint32 interfaceOf(quint16 busLine, LineBuffer &line)
    {
        if (busLine >= interfaces.size())
            interfaces.resize(std::size_t(busLine) + 1, 0);
        quint32 &number = interfaces[busLine];
        if (number == 0) {
            number = ++interfaceCount;
            addInterface(line, busLine);
        }
        return number - 1;
    }

    // At the beginning of a character.
    static QByteArray cut(const QString &note, ExportFrame &frame)
    {
        constexpr int mostBytes = 65535;
        QByteArray text = note.toUtf8();
        if (text.size() <= mostBytes)
            return text;
        frame.lose(TraceExport::NoteCut);
        int end = mostBytes;
        while (end > 0 && (text.at(end) & 0xC0) == 0x80)
            --end;
        return text.left(end);
    }

    static void addComment(const QByteArray &comment, LineBuffer &line, QByteArray &block)
    {
        if (comment.isEmpty())
            return;
        line.addLittleEndian<quint16>(Comment);
        line.addLittleEndian(quint16(comment.size()));
        line.flushTo(block);
        block += comment;
        line.fill(0, padded(comment.size()) - comment.size());
    }

    static void addFlags(LineBuffer &line, bool transmitted)
    {
        constexpr quint32 inbound = 1;
        constexpr quint32 outbound = 2;
        line.addLittleEndian<quint16>(PacketFlags);
        line.addLittleEndian<quint16>(sizeof inbound);
        line.addLittleEndian(transmitted ? outbound : inbound);
        line.addLittleEndian<quint32>(EndOfOptions);
    }

    std::vector<quint32> interfaces; // numbers from 1, 0 for none, by the line
    quint32 interfaceCount = 0;
};

} // namespace

std::unique_ptr<ExportWriter> pcapngWriter()
{
    return std::make_unique<PcapngWriter>();
}
