#ifndef SAMPLES_BITSTREAM_H
#define SAMPLES_BITSTREAM_H

#include <cstdint>
#include <vector>

/// Composes a configuration bitstream with the structure of a Xilinx 7-series one: dummy words, the
/// bus-width pattern, the sync word, type 1 and type 2 packets, checksums and desync.
///
/// The configuration frames contain noise, not a circuit: no device would do anything useful with
/// it.
class Bitstream {
public:
    /// All of a bitstream with \p frameCount configuration frames, big-endian.
    static std::vector<std::uint8_t> make(std::uint32_t frameCount);

private:
    enum Register : std::uint32_t {
        Crc = 0x00,
        Far = 0x01,
        Fdri = 0x02,
        Cmd = 0x04,
        Ctl0 = 0x05,
        Mask = 0x06,
        Cor0 = 0x09,
        IdCode = 0x0C,
        Cor1 = 0x0E,
        WbStar = 0x10,
        Timer = 0x11,
        Ctl1 = 0x18
    };
    enum Command : std::uint32_t {
        Null = 0x0,
        WriteConfiguration = 0x1,
        LastFrame = 0x3,
        Start = 0x5,
        ResetCrc = 0x7,
        Switch = 0x9,
        Restore = 0xA,
        Desync = 0xD
    };

    void syncUp();
    void setUp();
    void writeFrames(std::uint32_t frameCount);
    void startUp();

    void word(std::uint32_t value);
    void repeat(std::uint32_t value, int count);
    /// A type 1 packet that writes one word.
    void write(Register target, std::uint32_t value);
    void command(Command value);
    /// Writes the checksum of all that was written since the last reset of it.
    void writeCrc();
    /// Adds one written word to the checksum.
    void check(Register target, std::uint32_t value);

    std::vector<std::uint8_t> m_bytes;
    std::uint32_t m_crc = 0;
};

#endif
