#include "samples/Bitstream.h"
#include "support/TestProgram.h"

#include <QtTest>

#include <algorithm>

namespace {

using Words = std::vector<std::uint32_t>;

Words wordsOf(const std::vector<std::uint8_t>& bytes)
{
    Words words(bytes.size() / 4);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        words[i / 4] = (words[i / 4] << 8) | bytes[i];
    return words;
}

/// The checksum over 37 bits a word, worked out bit by bit from the highest power down: the mirror
/// image of how it is usually done.
class Checksum {
public:
    void add(std::uint32_t address, std::uint32_t word)
    {
        for (int bit = 0; bit < 32; ++bit)
            addBit((word >> bit) & 1);
        for (int bit = 0; bit < 5; ++bit)
            addBit((address >> bit) & 1);
    }
    void reset() { m_value = 0; }
    std::uint32_t value() const { return m_value; }

private:
    void addBit(std::uint32_t bit)
    {
        const bool carry = ((m_value >> 31) ^ bit) != 0;
        m_value = (m_value << 1) ^ (carry ? 0x1EDC6F41u : 0);
    }

    std::uint32_t m_value = 0;
};

struct Packets {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> writes;
    std::size_t frameWords = 0;
    int checksums = 0;
    int wrongChecksums = 0;
    QString fault;
};

constexpr std::uint32_t CrcRegister = 0;
constexpr std::uint32_t DataRegister = 2;
constexpr std::uint32_t CommandRegister = 4;
constexpr std::uint32_t ResetCrc = 7;

/// Reads the packets behind the sync word.
Packets readPackets(const Words& words, std::size_t position)
{
    Packets result;
    Checksum checksum;
    std::uint32_t address = 0;
    while (position < words.size()) {
        const std::uint32_t header = words[position++];
        const std::uint32_t type = header >> 29;
        const bool writes = ((header >> 27) & 3) == 2;
        if (header == 0x20000000)
            continue;
        if ((type != 1 && type != 2) || !writes) {
            result.fault = QString("word %1 is no packet").arg(position - 1);
            return result;
        }
        if (type == 1)
            address = (header >> 13) & 0x1F;
        for (std::uint32_t left = header & (type == 1 ? 0x7FF : 0x7FFFFFF); left > 0; --left) {
            const std::uint32_t word = words.at(position++);
            if (address == CrcRegister) {
                ++result.checksums;
                result.wrongChecksums += word != checksum.value();
                checksum.reset();
                continue;
            }
            checksum.add(address, word);
            if (address == CommandRegister && word == ResetCrc)
                checksum.reset();
            if (address == DataRegister)
                ++result.frameWords;
            else
                result.writes.emplace_back(address, word);
        }
    }
    return result;
}

} // namespace

class BitstreamTest : public QObject {
    Q_OBJECT

private slots:
    void beginsWithDummiesBusWidthAndSync();
    void consistsOfPacketsUpToItsEnd();
    void holdsTheFramesInOneType2Packet();
    void carriesRightChecksums();
    void endsWithDesync();
    void isTheSameEveryTime();
};

void BitstreamTest::beginsWithDummiesBusWidthAndSync()
{
    const Words words = wordsOf(Bitstream::make(2));
    for (std::size_t i = 0; i < 8; ++i)
        QCOMPARE(words[i], 0xFFFFFFFFu);
    QCOMPARE(words[8], 0x000000BBu);
    QCOMPARE(words[9], 0x11220044u);
    QCOMPARE(words[10], 0xFFFFFFFFu);
    QCOMPARE(words[11], 0xFFFFFFFFu);
    QCOMPARE(words[12], 0xAA995566u);
}

void BitstreamTest::consistsOfPacketsUpToItsEnd()
{
    const Packets packets = readPackets(wordsOf(Bitstream::make(3)), 13);
    QCOMPARE(packets.fault, QString());
    QVERIFY(packets.writes.size() > 15);
}

void BitstreamTest::holdsTheFramesInOneType2Packet()
{
    const Words words = wordsOf(Bitstream::make(5));
    QCOMPARE(std::count(words.begin(), words.end(), 0x50000000u | (5 * 101)), std::ptrdiff_t(1));
    QCOMPARE(readPackets(words, 13).frameWords, std::size_t(5 * 101));
}

void BitstreamTest::carriesRightChecksums()
{
    const Packets packets = readPackets(wordsOf(Bitstream::make(4)), 13);
    QCOMPARE(packets.checksums, 2);
    QCOMPARE(packets.wrongChecksums, 0);

    // A flipped bit of a frame is noticed, so that the checksum above means something.
    Words words = wordsOf(Bitstream::make(4));
    const auto data = std::find(words.begin(), words.end(), 0x50000000u | (4 * 101));
    *(data + 7) ^= 0x10;
    QCOMPARE(readPackets(words, 13).wrongChecksums, 1);
}

void BitstreamTest::endsWithDesync()
{
    const Packets packets = readPackets(wordsOf(Bitstream::make(1)), 13);
    QCOMPARE(packets.writes.back().first, CommandRegister);
    QCOMPARE(packets.writes.back().second, 0xDu);
}

void BitstreamTest::isTheSameEveryTime() { QVERIFY(Bitstream::make(10) == Bitstream::make(10)); }

ZORV_TEST(BitstreamTest)
#include "BitstreamTest.moc"
