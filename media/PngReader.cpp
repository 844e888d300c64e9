// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngReader.h"

#include "media/PngUnfilter.h"
#include "support/Failure.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include <isa-l/igzip_lib.h>

namespace ardeno {

namespace {

constexpr qint64 mostPixels = 500'000'000;
constexpr quint32 longestSide = 100'000; // Beyond it the memory of a few rows is more than that of pictures.
constexpr std::array<uchar, 8> signature = {0x89, 'P', 'N', 'G', 0x0d, 0x0a, 0x1a, 0x0a};

Failure damaged()
{
    return {"Image", 1, "The image file is damaged or incomplete."};
}

// Bytes of a file in order.
class Input final {
public:
    explicit Input(FileDescriptor file) : m_file(std::move(file)), m_buffer(64 * 1024) {}

    // At least one byte and at most this many; none at the end of the file.
    std::pair<const uchar *, size_t> some(size_t most)
    {
        if (m_from == m_to)
            fill();
        const size_t count = std::min(most, m_to - m_from);
        m_from += count;
        return {m_buffer.data() + m_from - count, count};
    }

    // False when the file ends before.
    bool take(uchar *out, size_t count)
    {
        while (count > 0) {
            const auto [bytes, got] = some(count);
            if (got == 0)
                return false;
            std::memcpy(out, bytes, got);
            out += got;
            count -= got;
        }
        return true;
    }

    bool skip(size_t count)
    {
        while (count > 0) {
            const size_t got = some(count).second;
            if (got == 0)
                return false;
            count -= got;
        }
        return true;
    }

private:
    void fill()
    {
        const ssize_t got = uninterrupted([&] { return ::read(m_file.number(), m_buffer.data(), m_buffer.size()); });
        if (got < 0)
            throw Failure::system(errno);
        m_from = 0;
        m_to = static_cast<size_t>(got);
    }

    FileDescriptor m_file;
    std::vector<uchar> m_buffer;
    size_t m_from = 0;
    size_t m_to = 0;
};

struct Header {
    int width = 0;
    int height = 0;
    int channels = 0;
};

// The first chunk; absent when it is not that of a file that is read here.
std::optional<Header> readHeader(Input &input)
{
    std::array<uchar, 33> bytes = {}; // The signature, length and type of the chunk, its 13 bytes and the checksum.
    if (!input.take(bytes.data(), bytes.size()) || !std::equal(signature.begin(), signature.end(), bytes.begin()) ||
        std::memcmp(bytes.data() + 8, "\0\0\0\x0dIHDR", 8) != 0)
        return std::nullopt;
    const auto width = qFromBigEndian<quint32>(bytes.data() + 16);
    const auto height = qFromBigEndian<quint32>(bytes.data() + 20);
    constexpr std::array<int, 7> channelsOf = {1, 0, 3, 0, 2, 0, 4}; // By colour type.
    const uchar colourType = bytes[25];
    const bool isPlain = bytes[24] == 8 && colourType < channelsOf.size() && channelsOf[colourType] > 0 &&
                         bytes[26] == 0 && bytes[27] == 0 && bytes[28] == 0;
    if (!isPlain || width == 0 || height == 0 || std::max(width, height) > longestSide ||
        qint64{width} * height > mostPixels)
        return std::nullopt;
    return Header{int(width), int(height), channelsOf[colourType]};
}

} // namespace

struct PngReader::State {
    State(Input bytes, const Header &facts)
        : input(std::move(bytes)),
          header(facts),
          row(size_t(1) + size_t(facts.width) * size_t(facts.channels)),
          above(row.size()),
          pixels(size_t(facts.width) * 4)
    {
        isal_inflate_init(&stream);
        stream.crc_flag = ISAL_ZLIB;
    }

    // Goes to the next piece of the file, past the end of the one before. Throws when the data ends before the picture
    // does.
    void enterChunk()
    {
        std::array<uchar, 8> start = {};
        if (!input.skip(isInData ? 4 : 0) || !input.take(start.data(), start.size()))
            throw damaged();
        const auto isNamed = [&](const char *name) { return std::memcmp(start.data() + 4, name, 4) == 0; };
        const auto length = qFromBigEndian<quint32>(start.data());
        if (isNamed("IDAT")) {
            isInData = true;
            chunkLeft = length;
        } else if (isInData || isNamed("IEND") || !input.skip(size_t(length) + 4)) {
            throw damaged();
        }
    }

    // Gives the decompressor the next bytes of the picture's data.
    void feed()
    {
        while (chunkLeft == 0)
            enterChunk();
        const auto [bytes, count] = input.some(chunkLeft);
        if (count == 0)
            throw damaged();
        stream.next_in = const_cast<uchar *>(bytes);
        stream.avail_in = quint32(count);
        chunkLeft -= count;
    }

    // The decompressor may hold back rows after it has taken all of its input.
    void inflateSome()
    {
        const quint32 inputLeft = stream.avail_in;
        const quint32 roomLeft = stream.avail_out;
        const int result = isal_inflate(&stream);
        const bool isStuck = stream.avail_in == inputLeft && stream.avail_out == roomLeft;
        if ((result != ISAL_DECOMP_OK && result != ISAL_END_INPUT) || (isStuck && inputLeft > 0))
            throw damaged();
        if (isStuck && stream.block_state != ISAL_BLOCK_FINISH)
            feed();
    }

    void inflateRow()
    {
        stream.next_out = row.data();
        stream.avail_out = quint32(row.size());
        while (stream.avail_out > 0) {
            inflateSome();
            if (stream.block_state == ISAL_BLOCK_FINISH && stream.avail_out > 0)
                throw damaged();
        }
    }

    // The checksum comes after the last row.
    void checkEnd()
    {
        uchar rest = 0;
        while (stream.block_state != ISAL_BLOCK_FINISH) {
            stream.next_out = &rest;
            stream.avail_out = 1;
            inflateSome();
            if (stream.avail_out == 0)
                throw damaged();
        }
    }

    Input input;
    Header header;
    inflate_state stream = {};
    bool isInData = false; // In a chunk of the picture's data, or at the checksum after it.
    size_t chunkLeft = 0;
    int rowsRead = 0;
    std::vector<uchar> row;   // With the type of its filter first, as is the next.
    std::vector<uchar> above; // Zeros above the first row.
    std::vector<uchar> pixels;
};

PngReader::PngReader(std::unique_ptr<State> state) : m_state(std::move(state)) {}

PngReader::PngReader(PngReader &&) noexcept = default;
PngReader &PngReader::operator=(PngReader &&) noexcept = default;
PngReader::~PngReader() = default;

std::optional<PngReader> PngReader::opened(FileDescriptor file)
{
    Input input(std::move(file));
    const std::optional<Header> header = readHeader(input);
    if (!header)
        return std::nullopt;
    return PngReader(std::make_unique<State>(std::move(input), *header));
}

QSize PngReader::size() const
{
    return {m_state->header.width, m_state->header.height};
}

const uchar *PngReader::nextRow()
{
    State &state = *m_state;
    std::swap(state.row, state.above);
    state.inflateRow();
    if (!unfilterPngRow(state.row.data(), state.above.data() + 1, state.row.size() - 1, state.header.channels))
        throw damaged();
    if (++state.rowsRead == state.header.height)
        state.checkEnd();
    showPngRow(state.row.data() + 1, state.header.width, state.header.channels, state.pixels.data());
    return state.pixels.data();
}

} // namespace ardeno
