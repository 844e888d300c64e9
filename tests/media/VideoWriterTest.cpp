// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoWriter.h"
#include "media/VideoFile.h"

#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/desktop/Video.h"
#include "tests/support/FailureOf.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace ardeno;
using desktop_test::Video;

namespace {

constexpr QSize size(320, 180);

// A picture that is hard to compress, different for every number, with the colour in its middle.
QByteArray picture(int number, QRgb colour)
{
    QByteArray pixels(qsizetype(size.width()) * size.height() * 4, Qt::Uninitialized);
    quint32 noise = quint32(number) * 2654435761U + 1;
    auto *pixel = reinterpret_cast<quint32 *>(pixels.data());
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            noise = noise * 1664525U + 1013904223U;
            const bool isMiddle = QRect(100, 50, 120, 80).contains(x, y);
            *pixel++ = isMiddle ? colour : noise >> 8;
        }
    }
    return pixels;
}

bool isNear(QRgb a, QRgb b)
{
    const auto distance = [](int x, int y) { return std::abs(x - y); };
    return distance(qRed(a), qRed(b)) + distance(qGreen(a), qGreen(b)) + distance(qBlue(a), qBlue(b)) < 24;
}

// While it lives, files of this process cannot grow beyond this size.
struct FileSizeLimit {
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limited = {bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
        std::signal(SIGXFSZ, SIG_IGN);
    }

    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before); }

    rlimit before = {};
};

struct VideoFixture {
    QTemporaryDir folder = {};
    QString path = folder.filePath("session.mp4");

    static void writeAll(VideoWriter &writer)
    {
        for (int i = 0; i < 100; ++i) {
            writer.write(picture(i, 0xff2060c0).constData(), i * 100);
            writer.keepUp(i * 100);
        }
        writer.finish(10'000);
    }
};

} // namespace

TEST_CASE_FIXTURE(VideoFixture, "a video shows its pictures at their times and lasts as long as was recorded")
{
    const QList<QRgb> colours = {0xffe02020, 0xff20c040, 0xff2040e0};
    {
        VideoWriter writer(path, size);
        writer.write(picture(1, colours[0]).constData(), 0);
        writer.write(picture(2, colours[1]).constData(), 100);
        writer.keepUp(1100);
        writer.write(picture(3, colours[2]).constData(), 9000); // After a long time without a change.
        writer.finish(20'000);
    }
    const Video video(path);
    CHECK(video.codec() == "h264");
    CHECK(video.size() == size);
    CHECK(std::abs(video.seconds() - 20) < 0.2);
    for (const auto &[second, colour] :
         {std::pair(0.05, colours[0]), std::pair(0.5, colours[1]), std::pair(8.5, colours[1]),
          std::pair(9.5, colours[2]), std::pair(19.5, colours[2])}) {
        CAPTURE(second);
        CHECK(isNear(video.frameAt(second).pixel(160, 90), colour));
    }
    struct stat status;
    REQUIRE(stat(QFile::encodeName(path).constData(), &status) == 0);
    CHECK((status.st_mode & 0777) == 0600);
}

TEST_CASE_FIXTURE(VideoFixture, "what is older than a second can be played though nobody ever finishes the file")
{
    VideoWriter writer(path, size);
    for (int i = 0; i < 50; ++i) {
        writer.write(picture(i, 0xff2060c0).constData(), i * 100);
        writer.keepUp(i * 100);
    }
    CHECK(Video(path).frames() >= 40);
    writer.keepUp(5'900); // The last frames have waited long enough.
    CHECK(Video(path).frames() == 50);
}

TEST_CASE_FIXTURE(VideoFixture, "a file that cannot grow any more ends with its last whole second")
{
    VideoWriter writer(path, size);
    {
        const FileSizeLimit limit(600'000);
        CHECK(failureOf([&] { writeAll(writer); }) == "File too large.");
    }
    CHECK(Video(path).frames() > 5);
    CHECK(Video(path).problems() == "");
}

TEST_CASE_FIXTURE(VideoFixture, "a file that has gone or cannot be made is a failure at once")
{
    QDir().mkpath(folder.filePath("media"));
    VideoWriter writer(folder.filePath("media/session.mp4"), size);
    QDir(folder.filePath("media")).removeRecursively();
    CHECK(failureOf([&] { writeAll(writer); }) == "No such file or directory.");
    CHECK_THROWS_AS(VideoWriter(folder.filePath("media/session.mp4"), size), Failure);
}

TEST_CASE_FIXTURE(VideoFixture, "a video cut anywhere is repaired to what can be played")
{
    {
        VideoWriter writer(path, size);
        writeAll(writer);
    }
    const QByteArray whole = fileBytes(path);
    const QString cut = folder.filePath("cut.mp4");
    int playable = 0;
    for (qsizetype length = whole.size(); length > 0; length -= whole.size() / 7 + 1) {
        CAPTURE(length);
        writeFile(cut, whole.first(length));
        const bool isPlayable = VideoFile::repair(cut);
        CHECK(isPlayable == (Video(cut).frames() > 0));
        if (isPlayable)
            CHECK(Video(cut).problems() == "");
        playable += isPlayable ? 1 : 0;
    }
    CHECK(playable > 4);
    CHECK_FALSE(VideoFile::repair(folder.filePath("missing.mp4")));
}
