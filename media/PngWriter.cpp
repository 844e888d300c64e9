// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"

#include "media/PngRows.h"

#include <QList>

#include <algorithm>
#include <future>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

namespace ardeno {

namespace {

constexpr int bytesPerPixel = 4;
constexpr int filteredBytesPerPixel = 3;

// Part of the picture's compressed data: a chunk of the file and the checksum of the rows in it.
struct Piece {
    QByteArray chunk = {};
    quint32 adler = 1;
    qsizetype length = 0; // Of the filtered rows.
};

struct Rows {
    const uchar *pixels = nullptr; // Of these and their neighbours.
    const uchar *above = nullptr;  // The row above the first of pixels; null at the top of the picture.
    int width = 0;
    int from = 0;
    int to = 0;
    bool isFirst = false; // Of the picture, as is the next.
    bool isLast = false;
};

void appendNumber(QByteArray &bytes, quint32 number)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.append(char(number >> shift));
}

// Fills in the length and appends the checksum of a chunk that begins with four bytes for its length.
void closeChunk(QByteArray &chunk)
{
    const quint32 length = quint32(chunk.size() - 8);
    for (int i = 0; i < 4; ++i)
        chunk[i] = char(length >> (24 - 8 * i));
    const auto *typeAndData = reinterpret_cast<const unsigned char *>(chunk.constData()) + 4;
    appendNumber(chunk, crc32_gzip_refl(0, typeAndData, quint64(chunk.size()) - 4));
}

QByteArray openChunk(const char *type)
{
    return QByteArray(4, '\0') + type;
}

// Deflates rows block by block, so that the filtered bytes never leave the processor's cache.
class PieceWriter final {
public:
    explicit PieceWriter(const Rows &rows)
        : m_rows(rows),
          m_rowBytes(1 + qsizetype(rows.width) * filteredBytesPerPixel),
          m_rowsPerBlock(std::max<qsizetype>(1, blockBytes / m_rowBytes)),
          m_filtered(size_t(m_rowBytes * std::min<qsizetype>(m_rowsPerBlock, rows.to - rows.from))),
          m_levelBuffer(ISAL_DEF_LVL1_DEFAULT)
    {
        isal_deflate_init(&m_stream);
        m_stream.level = 1;
        m_stream.level_buf = m_levelBuffer.data();
        m_stream.level_buf_size = quint32(m_levelBuffer.size());
        m_stream.gzip_flag = IGZIP_DEFLATE;
    }

    Piece written()
    {
        m_piece.chunk = openChunk("IDAT");
        if (m_rows.isFirst)
            m_piece.chunk.append("\x78\x01", 2); // Of the zlib format, of which the pieces are one stream.
        m_used = m_piece.chunk.size();
        const qsizetype expected = m_rowBytes * (m_rows.to - m_rows.from);
        m_piece.chunk.resize(m_used + expected / 4 + 4096);
        for (int row = m_rows.from; row < m_rows.to; row += int(m_rowsPerBlock))
            deflateBlock(row, std::min(m_rows.to, row + int(m_rowsPerBlock)));
        m_piece.chunk.resize(m_used);
        m_piece.length = expected;
        return std::move(m_piece);
    }

private:
    static constexpr qsizetype blockBytes = 128 * 1024;

    void deflateBlock(int from, int to)
    {
        const qsizetype stride = qsizetype(m_rows.width) * bytesPerPixel;
        uchar *out = m_filtered.data();
        for (int row = from; row < to; ++row, out += m_rowBytes) {
            const uchar *pixels = m_rows.pixels + row * stride;
            filterPngRow(pixels, row > 0 ? pixels - stride : m_rows.above, m_rows.width, out);
        }
        const qsizetype length = out - m_filtered.data();
        m_piece.adler = isal_adler32(m_piece.adler, m_filtered.data(), quint64(length));

        const bool ends = to == m_rows.to;
        m_stream.next_in = m_filtered.data();
        m_stream.avail_in = quint32(length);
        m_stream.end_of_stream = ends && m_rows.isLast ? 1 : 0;
        // A piece in the middle ends on a whole byte, so that the next can follow it.
        m_stream.flush = ends && !m_rows.isLast ? SYNC_FLUSH : NO_FLUSH;
        deflateInput();
    }

    void deflateInput()
    {
        do {
            if (m_piece.chunk.size() - m_used < 4096)
                m_piece.chunk.resize(m_piece.chunk.size() * 3 / 2 + 65536);
            const auto free = quint32(m_piece.chunk.size() - m_used);
            m_stream.next_out = reinterpret_cast<quint8 *>(m_piece.chunk.data()) + m_used;
            m_stream.avail_out = free;
            isal_deflate(&m_stream);
            m_used += free - m_stream.avail_out;
        } while (m_stream.avail_out == 0);
    }

    Rows m_rows;
    qsizetype m_rowBytes;
    qsizetype m_rowsPerBlock;
    std::vector<uchar> m_filtered;
    std::vector<uchar> m_levelBuffer;
    isal_zstream m_stream = {};
    Piece m_piece = {};
    qsizetype m_used = 0;
};

// The checksum of two runs of bytes, one after the other.
quint32 combinedAdler(quint32 first, quint32 second, qsizetype secondLength)
{
    constexpr quint64 modulus = 65521;
    const quint64 length = quint64(secondLength) % modulus;
    const quint64 low = (first & 0xffff) + (second & 0xffff) + modulus - 1;
    const quint64 high = (first >> 16) + (second >> 16) + length * (first & 0xffff) + modulus - length;
    return quint32(high % modulus << 16 | low % modulus);
}

Piece writtenPiece(const Rows &rows)
{
    return PieceWriter(rows).written();
}

// On a thread of its own, if there is one left.
std::future<Piece> begun(const Rows &rows)
{
    try {
        return std::async(std::launch::async, writtenPiece, rows);
    } catch (const std::system_error &) {
        return std::async(std::launch::deferred, writtenPiece, rows);
    }
}

// Several at once.
std::vector<Piece> writtenPieces(Rows rows)
{
    constexpr qint64 worthAThread = 200'000; // Pixels; fewer are written before another thread has started.
    const int height = rows.to;
    const qint64 wanted = qint64(rows.width) * height / worthAThread;
    const int count =
        int(std::clamp<qint64>(std::min<qint64>(wanted, std::thread::hardware_concurrency()), 1, std::min(4, height)));
    const bool endsPicture = std::exchange(rows.isLast, false);
    std::vector<std::future<Piece>> others;
    for (int i = 1; i < count; ++i) {
        rows.to = int(qint64(height) * i / count);
        others.push_back(begun(rows));
        rows.from = rows.to;
        rows.isFirst = false;
    }
    rows.to = height;
    rows.isLast = endsPicture;
    Piece last = writtenPiece(rows);

    std::vector<Piece> pieces;
    pieces.reserve(size_t(count));
    for (std::future<Piece> &other : others)
        pieces.push_back(other.get());
    pieces.push_back(std::move(last));
    return pieces;
}

QByteArray header(QSize size)
{
    QByteArray chunk = openChunk("IHDR");
    appendNumber(chunk, quint32(size.width()));
    appendNumber(chunk, quint32(size.height()));
    chunk.append("\x08\x02\x00\x00\x00", 5); // 8 bits, red green blue, deflate, filters by row, not interlaced.
    closeChunk(chunk);
    return "\x89PNG\r\n\x1a\n" + chunk;
}

} // namespace

PngStream::PngStream(QSize size, Sink sink) : m_size(size), m_sink(std::move(sink))
{
    m_sink(header(size));
}

void PngStream::add(const uchar *pixels, int rows)
{
    const qsizetype stride = qsizetype(m_size.width()) * bytesPerPixel;
    const bool isLast = m_written + rows == m_size.height();
    const auto *const above = m_last.isEmpty() ? nullptr : reinterpret_cast<const uchar *>(m_last.constData());
    std::vector<Piece> pieces = writtenPieces({pixels, above, m_size.width(), 0, rows, m_written == 0, isLast});
    for (const Piece &piece : pieces)
        m_adler = combinedAdler(m_adler, piece.adler, piece.length);
    if (isLast)
        appendNumber(pieces.back().chunk, m_adler);
    for (Piece &piece : pieces) {
        closeChunk(piece.chunk);
        m_sink(piece.chunk);
    }
    m_written += rows;
    if (!isLast) {
        m_last = QByteArray(reinterpret_cast<const char *>(pixels) + (rows - 1) * stride, stride);
        return;
    }
    QByteArray end = openChunk("IEND");
    closeChunk(end);
    m_sink(end);
}

QByteArray PngWriter::encoded(QSize size, const QByteArray &pixels)
{
    if (size.isEmpty() || pixels.size() != qsizetype(size.width()) * size.height() * bytesPerPixel)
        return {};
    QByteArray file;
    PngStream stream(size, [&](const QByteArray &bytes) { file += bytes; });
    stream.add(reinterpret_cast<const uchar *>(pixels.constData()), size.height());
    return file;
}

} // namespace ardeno
