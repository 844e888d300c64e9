// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ImageImport.h"

#include "media/ImageModule.h"
#include "media/PngWriter.h"
#include "support/AtomicFile.h"
#include "support/FileDescriptor.h"
#include "support/Module.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <optional>
#include <utility>

namespace ardeno {

namespace {

Failure imageFailure(const QString &description)
{
    return {"Image", 1, description};
}

// What becomes of the rows of a picture; functions may throw Failure, and end the work by returning false.
class Receiver {
public:
    virtual ~Receiver() = default;

    virtual bool begin(QSize size) = 0;
    virtual bool add(const uchar *pixels, int rows) = 0;
};

// Carries what a receiver throws past the module, which knows nothing of exceptions.
struct Passage {
    Receiver &receiver;
    std::exception_ptr thrown = {};

    template <typename Call>
    bool pass(Call call)
    {
        try {
            return call();
        } catch (...) {
            thrown = std::current_exception();
            return false;
        }
    }

    static bool begin(void *context, int width, int height)
    {
        auto &passage = *static_cast<Passage *>(context);
        return passage.pass([&] { return passage.receiver.begin({width, height}); });
    }

    static bool rows(void *context, const unsigned char *pixels, int count)
    {
        auto &passage = *static_cast<Passage *>(context);
        return passage.pass([&] { return passage.receiver.add(pixels, count); });
    }
};

FileDescriptor openImage(const QString &path)
{
    // Not to wait for a pipe that stands in the place of a file.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
    FileDescriptor file(uninterrupted([&] { return ::open(QFile::encodeName(path).constData(), flags); }));
    struct stat status = {};
    if (!file || ::fstat(file.number(), &status) != 0)
        throw Failure::system(errno);
    if (!S_ISREG(status.st_mode))
        throw Failure(ImageImport::notAnImageDomain, 1, "This is not a file.");
    return file;
}

void throwOutcome(ImageOutcome outcome)
{
    switch (outcome) {
    case ImageOutcome::Done:
        return;
    case ImageOutcome::NotAnImage:
        throw Failure(ImageImport::notAnImageDomain, 2, "The file is not an image of a known format.");
    case ImageOutcome::TooLarge:
        throw imageFailure("The image has too many pixels.");
    case ImageOutcome::Damaged:
        throw imageFailure("The image file is damaged or incomplete.");
    case ImageOutcome::Ended:
        throw ImageImport::ended();
    case ImageOutcome::NoLibrary:
        throw imageFailure("The system’s image library (libvips) could not be started.");
    }
}

void readImage(const FileDescriptor &file, int longestSide, Receiver &receiver)
{
    const auto read = reinterpret_cast<ReadImage>(Module::function(imageModuleName, readImageName));
    Passage passage{receiver};
    ImageJob job;
    job.descriptor = file.number();
    job.longestSide = longestSide;
    job.context = &passage;
    job.begin = Passage::begin;
    job.rows = Passage::rows;
    const ImageOutcome outcome = read(job);
    if (passage.thrown)
        std::rethrow_exception(passage.thrown);
    throwOutcome(outcome);
}

// Writes rows into a PNG file, many at once.
class PngReceiver final : public Receiver {
public:
    PngReceiver(PngStream::Sink sink, const std::function<bool()> &isWanted)
        : m_sink(std::move(sink)), m_isWanted(isWanted)
    {
    }

    bool begin(QSize size) override
    {
        m_size = size;
        m_stride = qsizetype(size.width()) * 4;
        m_buffer.reserve(std::max(m_stride, std::min(bufferBytes, m_stride * size.height())));
        m_stream.emplace(size, m_sink);
        return isWanted();
    }

    bool add(const uchar *pixels, int rows) override
    {
        for (; rows > 0; --rows, pixels += m_stride) {
            m_buffer.append(reinterpret_cast<const char *>(pixels), m_stride);
            ++m_rows;
            if (m_rows == m_size.height() || m_buffer.size() + m_stride > bufferBytes)
                flush();
        }
        return isWanted();
    }

private:
    static constexpr qsizetype bufferBytes = 8 * 1024 * 1024;

    bool isWanted() const { return !m_isWanted || m_isWanted(); }

    void flush()
    {
        m_stream->add(reinterpret_cast<const uchar *>(m_buffer.constData()), int(m_buffer.size() / m_stride));
        m_buffer.resize(0); // Which keeps the memory.
    }

    PngStream::Sink m_sink;
    const std::function<bool()> &m_isWanted;
    QSize m_size = {};
    qsizetype m_stride = 0;
    QByteArray m_buffer = {};
    int m_rows = 0; // So far, incl. those in the buffer.
    std::optional<PngStream> m_stream = {};
};

// Keeps rows as they are.
class PictureReceiver final : public Receiver {
public:
    explicit PictureReceiver(const std::function<bool()> &isWanted) : m_isWanted(isWanted) {}

    bool begin(QSize size) override
    {
        picture.size = size;
        picture.pixels.reserve(qsizetype(size.width()) * size.height() * 4);
        return m_isWanted();
    }

    bool add(const uchar *pixels, int rows) override
    {
        picture.pixels.append(reinterpret_cast<const char *>(pixels), qsizetype(picture.size.width()) * rows * 4);
        return m_isWanted();
    }

    Picture picture = {};

private:
    const std::function<bool()> &m_isWanted;
};

// Wants no rows.
class SizeReceiver final : public Receiver {
public:
    bool begin(QSize found) override
    {
        size = found;
        return false;
    }

    bool add(const uchar *, int) override { return false; }

    QSize size = {};
};

} // namespace

Failure ImageImport::ended()
{
    return imageFailure("Reading the image was ended.");
}

void ImageImport::writePng(const QString &source, const QString &target, const std::function<bool()> &isWanted)
{
    AtomicFile::writeNew(target, [&](const std::function<void(QByteArrayView)> &write) {
        PngReceiver receiver([&](const QByteArray &bytes) { write(bytes); }, isWanted);
        readImage(openImage(source), longestSide, receiver);
    });
}

Picture ImageImport::thumbnail(const FileDescriptor &source, int longestSide, const std::function<bool()> &isWanted)
{
    PictureReceiver receiver(isWanted);
    readImage(source, longestSide, receiver);
    return std::move(receiver.picture);
}

QSize ImageImport::sizeOf(const FileDescriptor &source, int longestSide)
{
    SizeReceiver receiver;
    try {
        readImage(source, longestSide, receiver);
    } catch (const Failure &) {
        if (receiver.size.isEmpty()) // Else it was ended by the receiver.
            throw;
    }
    return receiver.size;
}

} // namespace ardeno
