// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PictureShrinking.h"

#include <algorithm>
#include <array>
#include <vector>

namespace ardeno {

namespace {

QSize sizeWithin(QSize size, int longestSide)
{
    if (std::max(size.width(), size.height()) <= longestSide)
        return size;
    return size.scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

// Sums of the pixels that become one row of the small picture.
class RowSums final {
public:
    RowSums(int width, int smallWidth) : m_sums(size_t(smallWidth)), m_ends(size_t(smallWidth))
    {
        for (int column = 0; column < smallWidth; ++column)
            m_ends[size_t(column)] = int(qint64(width) * (column + 1) / smallWidth);
    }

    void add(const uchar *row)
    {
        int x = 0;
        for (size_t column = 0; column < m_sums.size(); ++column) {
            std::array<quint32, 3> sum = {};
            for (; x < m_ends[column]; ++x, row += 4) {
                sum[0] += row[0];
                sum[1] += row[1];
                sum[2] += row[2];
            }
            for (size_t i = 0; i < 3; ++i)
                m_sums[column][i] += sum[i];
        }
        ++m_rows;
    }

    // Writes the means and begins anew.
    void finish(uchar *out)
    {
        int begin = 0;
        for (size_t column = 0; column < m_sums.size(); ++column, out += 4) {
            const quint64 count = quint64(m_ends[column] - begin) * m_rows;
            begin = m_ends[column];
            for (size_t i = 0; i < 3; ++i)
                out[i] = uchar((m_sums[column][i] + count / 2) / count);
            out[3] = 255;
            m_sums[column] = {};
        }
        m_rows = 0;
    }

private:
    std::vector<std::array<quint64, 3>> m_sums; // Of blue, green and red.
    std::vector<int> m_ends;                    // The first column that is no longer part of each small one.
    quint64 m_rows = 0;
};

} // namespace

std::optional<Picture> shrunken(PngReader &reader, int longestSide, const std::function<bool()> &isWanted)
{
    constexpr int rowsBetweenQuestions = 64;
    const QSize size = reader.size();
    Picture small{.size = sizeWithin(size, longestSide)};
    const qsizetype stride = qsizetype(small.size.width()) * 4;
    small.pixels.resize(stride * small.size.height());
    RowSums sums(size.width(), small.size.width());
    int y = 0;
    for (int row = 0; row < small.size.height(); ++row) {
        const int end = int(qint64(size.height()) * (row + 1) / small.size.height());
        for (; y < end; ++y) {
            if (y % rowsBetweenQuestions == 0 && !isWanted())
                return std::nullopt;
            sums.add(reader.nextRow());
        }
        sums.finish(reinterpret_cast<uchar *>(small.pixels.data()) + row * stride);
    }
    return small;
}

} // namespace ardeno
