// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Thumbnails.h"

#include "media/PngWriter.h"
#include "tests/Printing.h"
#include "tests/media/SampleImages.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <optional>
#include <vector>

using namespace ardeno;

namespace {

struct ThumbnailsFixture {
    QTemporaryDir home;
    std::unique_ptr<Thumbnails> thumbnails = std::make_unique<Thumbnails>(cacheFolder());

    QString cacheFolder() const { return home.filePath("cache/Ardeno/thumbnails"); }

    QStringList cached() const { return QDir(cacheFolder()).entryList(QDir::Files | QDir::Hidden); }

    // A picture of one colour, as screenshots are written.
    QString screenshot(const QString &name, QSize size, uchar blue, uchar red) const
    {
        QByteArray pixels;
        for (qsizetype i = 0; i < qsizetype(size.width()) * size.height(); ++i)
            pixels += QByteArray{}.append(char(blue)).append('\0').append(char(red)).append('\0');
        return file(name, PngWriter::encoded(size, pixels));
    }

    QString file(const QString &name, const QByteArray &bytes) const
    {
        writeFile(home.filePath(name), bytes);
        return home.filePath(name);
    }

    Thumbnail of(const QString &path) const
    {
        std::optional<Thumbnail> got;
        QEventLoop loop;
        const Thumbnails::Request request = thumbnails->request(path, [&](const Thumbnail &thumbnail) {
            got = thumbnail;
            loop.quit();
        });
        CHECK_MESSAGE(!got, "an answer never comes within the call");
        loop.exec();
        return *got;
    }
};

bool isOneColour(const Thumbnail &thumbnail, uchar blue, uchar red)
{
    const QByteArray pixel = QByteArray{}.append(char(blue)).append('\0').append(char(red)).append('\xff');
    const QByteArray &pixels = thumbnail.picture.pixels;
    return thumbnail.state == Thumbnail::State::Ready &&
           pixels == pixel.repeated(thumbnail.picture.size.width() * thumbnail.picture.size.height());
}

} // namespace

TEST_CASE_FIXTURE(ThumbnailsFixture, "a screenshot is made small, and comes from the folder the next time")
{
    const QString path = screenshot("wide.png", {1920, 1080}, 200, 10);
    const Thumbnail made = of(path);
    CHECK(made.picture.size == QSize(256, 144));
    CHECK(isOneColour(made, 200, 10));
    REQUIRE(cached().size() == 1);
    const QFile kept(cacheFolder() + '/' + cached().first());
    CHECK((kept.permissions() & (QFile::ReadGroup | QFile::ReadOther)) == QFile::Permissions());

    // Another picture in the place of the kept one shows where the answer comes from.
    QFile::remove(kept.fileName());
    QFile::rename(screenshot("other.png", {9, 9}, 1, 2), kept.fileName());
    CHECK(of(path).picture.size == QSize(9, 9));
    file("damaged", "no picture");
    QFile::remove(kept.fileName());
    QFile::rename(home.filePath("damaged"), kept.fileName());
    CHECK(of(path) == made);

    CHECK(of(screenshot("small.png", {3, 5}, 7, 8)).picture.size == QSize(3, 5));
    CHECK(of(screenshot("line.png", {5000, 2}, 7, 8)).picture.size == QSize(256, 1));
}

TEST_CASE_FIXTURE(ThumbnailsFixture, "a picture that was written anew is made small anew, and the old one goes")
{
    const QString path = screenshot("one.png", {640, 480}, 200, 10);
    REQUIRE(isOneColour(of(path), 200, 10));
    QFile::remove(path);
    screenshot("one.png", {640, 480}, 20, 100);
    CHECK(isOneColour(of(path), 20, 100));
    CHECK(cached().size() == 1);
}

TEST_CASE_FIXTURE(ThumbnailsFixture, "what is missing, empty or no picture is answered as such, and never kept")
{
    CHECK(of(home.filePath("missing.png")).state == Thumbnail::State::Missing);
    CHECK(of(file("empty.png", {})).state == Thumbnail::State::Unreadable);
    CHECK(of(file("text.png", "some words")).state == Thumbnail::State::Unreadable);
    CHECK(of(home.path()).state == Thumbnail::State::Unreadable);
    CHECK(of(screenshot("wide.png", {150'000, 1}, 200, 10)).state == Thumbnail::State::Unreadable);
    QDir(home.path()).mkdir("media");
    const QString inFolder = screenshot("media/one.png", {640, 480}, 200, 10);
    QFile::link(inFolder, home.filePath("link.png"));
    QFile::link(home.filePath("media"), home.filePath("linked"));
    CHECK(of(inFolder).state == Thumbnail::State::Ready);
    CHECK(of(home.filePath("link.png")).state == Thumbnail::State::Unreadable);
    CHECK(of(home.filePath("linked/one.png")).state == Thumbnail::State::Unreadable);
    QDir(home.filePath("cache")).removeRecursively();
    const QString path = screenshot("cut.png", {640, 480}, 200, 10);
    QFile::resize(path, QFile(path).size() - 20);
    CHECK(of(path).state == Thumbnail::State::Unreadable);
    CHECK(cached().isEmpty());
}

TEST_CASE_FIXTURE(ThumbnailsFixture, "pictures that other programs wrote show the same as in another decoder")
{
    for (const char *name : {"rgb.png[filter=all]", "sub.png[filter=sub]", "average.png[filter=avg]",
                             "paeth.png[filter=paeth]", "interlaced.png[interlace]", "photo.jpg[Q=95]"}) {
        CAPTURE(QString(name));
        REQUIRE(samples::write(home.filePath(name), {.size = {200, 100}, .isNoisy = true}));
        const QString path = home.filePath(QString(name).section('[', 0, 0));
        const Thumbnail thumbnail = of(path);
        REQUIRE(thumbnail.state == Thumbnail::State::Ready);
        const QImage expected = QImage(path).convertToFormat(QImage::Format_RGB32);
        const QImage shown(reinterpret_cast<const uchar *>(thumbnail.picture.pixels.constData()), 200, 100,
                           QImage::Format_RGB32);
        CHECK(shown == expected);
    }
}

TEST_CASE_FIXTURE(ThumbnailsFixture, "what the user deleted is kept no longer")
{
    const QString doomed = screenshot("doomed.png", {640, 480}, 200, 10);
    const QString stays = screenshot("stays.png", {640, 480}, 200, 10);
    of(doomed);
    of(stays);
    const QStringList both = cached();
    REQUIRE(both.size() == 2);
    thumbnails->forget({doomed});
    REQUIRE(cached().size() == 1);
    of(doomed);
    CHECK(cached() == both);

    // A picture that has gone by itself, and those that a later start knows nothing of.
    QFile::remove(doomed);
    CHECK(of(doomed).state == Thumbnail::State::Missing);
    CHECK(cached().size() == 1);
    thumbnails = std::make_unique<Thumbnails>(cacheFolder());
    // Files that were not made there stay, as where the folder is a link to somebody's own.
    REQUIRE(QFile::copy(stays, cacheFolder() + "/holiday-1-2.png"));
    thumbnails->keepOnly({doomed});
    of(home.filePath("missing.png"));
    CHECK(cached() == QStringList{"holiday-1-2.png"});
}

TEST_CASE_FIXTURE(ThumbnailsFixture, "a picture that is deleted while it is made small leaves no small copy")
{
    const QSize size(9000, 7000);
    const QByteArray pixels(qsizetype(size.width()) * size.height() * 4, '\x40');
    const QString path = file("large.png", PngWriter::encoded(size, pixels));
    std::optional<Thumbnail> got;
    const auto request = thumbnails->request(path, [&](const Thumbnail &thumbnail) { got = thumbnail; });
    REQUIRE(QTest::qWaitFor([&] {
        const QFileInfoList open = QDir("/proc/self/fd").entryInfoList(QDir::AllEntries | QDir::System);
        return std::any_of(open.begin(), open.end(),
                           [&](const QFileInfo &each) { return each.symLinkTarget() == path; });
    }));
    QFile::remove(path);
    thumbnails->forget({path});
    REQUIRE(QTest::qWaitFor([&] { return got.has_value(); }, 30'000));
    CHECK(got->state == Thumbnail::State::Missing);
    CHECK(cached().isEmpty());
}

TEST_CASE_FIXTURE(ThumbnailsFixture, "the newest request is answered first, and one that has gone never")
{
    // The first keeps the worker busy until the others wait; on a busy machine it may be done too soon.
    const QString large = screenshot("large.png", {9000, 7000}, 1, 2);
    const QString path = screenshot("one.png", {640, 480}, 200, 10);
    const QStringList wanted{"third", "second", "first"};
    QStringList order;
    for (int round = 0; round < 5 && order != wanted; ++round) {
        for (const QString &kept : cached())
            QFile::remove(cacheFolder() + '/' + kept);
        order.clear();
        QEventLoop loop;
        std::vector<Thumbnails::Request> requests;
        const auto ask = [&](const QString &picture, const QString &name) {
            requests.push_back(thumbnails->request(picture, [&, name](const Thumbnail &thumbnail) {
                order += thumbnail.state == Thumbnail::State::Dropped ? name + " dropped" : name;
                if (name == "first")
                    loop.quit();
            }));
        };
        ask(large, "large");
        ask(path, "first");
        ask(path, "second");
        ask(path, "gone");
        requests.pop_back();
        ask(path, "third");
        loop.exec();
        order.removeAll("large");
        CHECK_FALSE(order.contains("gone"));
    }
    CHECK(order == wanted);
}

TEST_CASE_FIXTURE(ThumbnailsFixture, "too many requests drop the oldest, which is told")
{
    const QString path = screenshot("one.png", {2000, 1500}, 200, 10);
    const qsizetype more = 10;
    QEventLoop loop;
    qsizetype dropped = 0;
    qsizetype ready = 0;
    std::vector<Thumbnails::Request> requests;
    for (qsizetype i = 0; i < Thumbnails::mostWaiting + more; ++i)
        requests.push_back(thumbnails->request(path, [&](const Thumbnail &thumbnail) {
            (thumbnail.state == Thumbnail::State::Dropped ? dropped : ready) += 1;
            if (dropped + ready == Thumbnails::mostWaiting + more)
                loop.quit();
        }));
    loop.exec();
    // The worker may have taken one out of the queue meanwhile.
    CHECK(dropped >= more - 1);
    CHECK(dropped <= more);
}
