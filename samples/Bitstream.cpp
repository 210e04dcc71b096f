#include "samples/Bitstream.h"

namespace {

constexpr std::uint32_t Dummy = 0xFFFFFFFF;
constexpr std::uint32_t BusWidthSync = 0x000000BB;
constexpr std::uint32_t BusWidthDetect = 0x11220044;
constexpr std::uint32_t SyncWord = 0xAA995566;
constexpr std::uint32_t NoOperation = 0x20000000;
constexpr std::uint32_t Type1Write = 0x30000000;
constexpr std::uint32_t Type2Write = 0x50000000;
constexpr int RegisterShift = 13;

constexpr std::uint32_t FrameWords = 101;
/// The device that the sample claims to be for.
constexpr std::uint32_t SampleIdCode = 0x0362D093;
/// The reversed polynomial of CRC-32C.
constexpr std::uint32_t CrcPolynomial = 0x82F63B78;
constexpr int AddressBits = 5;
constexpr int WordBits = 32;

std::uint32_t reversed(std::uint32_t value)
{
    std::uint32_t result = 0;
    for (int bit = 0; bit < WordBits; ++bit, value >>= 1)
        result = (result << 1) | (value & 1);
    return result;
}

} // namespace

std::vector<std::uint8_t> Bitstream::make(std::uint32_t frameCount)
{
    Bitstream bitstream;
    bitstream.syncUp();
    bitstream.setUp();
    bitstream.writeFrames(frameCount);
    bitstream.startUp();
    return bitstream.m_bytes;
}

void Bitstream::syncUp()
{
    repeat(Dummy, 8);
    word(BusWidthSync);
    word(BusWidthDetect);
    repeat(Dummy, 2);
    word(SyncWord);
    word(NoOperation);
}

void Bitstream::setUp()
{
    write(Timer, 0);
    write(WbStar, 0);
    command(Null);
    word(NoOperation);
    command(ResetCrc);
    repeat(NoOperation, 2);
    write(Cor0, 0x02003FE5);
    write(Cor1, 0);
    write(IdCode, SampleIdCode);
    command(Switch);
    word(NoOperation);
    write(Mask, 0x00000401);
    write(Ctl0, 0x00000501);
    write(Mask, 0);
    write(Ctl1, 0);
    repeat(NoOperation, 8);
}

void Bitstream::writeFrames(std::uint32_t frameCount)
{
    write(Far, 0);
    command(WriteConfiguration);
    word(NoOperation);
    // A count of 0 in the type 1 packet: the words follow in the type 2 packet behind it.
    word(Type1Write | (Fdri << RegisterShift));
    const std::uint32_t count = frameCount * FrameWords;
    word(Type2Write | count);
    std::uint32_t noise = SampleIdCode;
    for (std::uint32_t i = 0; i < count; ++i) {
        noise = noise * 1664525u + 1013904223u;
        // Most of a real bitstream is unused fabric, which is zero.
        const std::uint32_t value = (noise >> 28) == 0 ? noise : 0;
        word(value);
        check(Fdri, value);
    }
    writeCrc();
    repeat(NoOperation, 2);
}

void Bitstream::startUp()
{
    command(Restore);
    word(NoOperation);
    command(LastFrame);
    repeat(NoOperation, 100);
    command(Start);
    word(NoOperation);
    write(Far, 0x03BE0000);
    write(Mask, 0x00000501);
    write(Ctl0, 0x00000501);
    writeCrc();
    repeat(NoOperation, 2);
    command(Desync);
    repeat(NoOperation, 400);
}

void Bitstream::word(std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        m_bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

void Bitstream::repeat(std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        word(value);
}

void Bitstream::write(Register target, std::uint32_t value)
{
    word(Type1Write | (target << RegisterShift) | 1);
    word(value);
    check(target, value);
}

void Bitstream::command(Command value)
{
    write(Cmd, value);
    if (value == ResetCrc)
        m_crc = 0;
}

void Bitstream::writeCrc()
{
    word(Type1Write | (Crc << RegisterShift) | 1);
    word(reversed(m_crc));
    m_crc = 0;
}

void Bitstream::check(Register target, std::uint32_t value)
{
    const std::uint64_t bits = (static_cast<std::uint64_t>(target) << WordBits) | value;
    for (int bit = 0; bit < WordBits + AddressBits; ++bit) {
        const bool one = ((m_crc ^ static_cast<std::uint32_t>(bits >> bit)) & 1) != 0;
        m_crc = (m_crc >> 1) ^ (one ? CrcPolynomial : 0);
    }
}
