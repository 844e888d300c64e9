// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ImageImport.h"

#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/media/SampleImages.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <atomic>
#include <sys/stat.h>
#include <thread>

using namespace ardeno;
using samples::Colours;

namespace {

struct ImportFixture {
    QTemporaryDir folder;

    QString path(const QString &name) const { return folder.filePath(name); }

    void writeFile(const QString &name, const QByteArray &bytes) const { ardeno::writeFile(path(name), bytes); }

    QByteArray bytes(const QString &name) const { return fileBytes(path(name)); }

    // The picture that was written, or why none was; nothing else is left in the folder then.
    QString imported(const QString &name, QImage *image = nullptr) const
    {
        const QStringList before = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
        QFile::remove(path("out.png"));
        try {
            ImageImport::writePng(path(name), path("out.png"));
        } catch (const Failure &failure) {
            QStringList after = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
            after.removeIf([&](const QString &file) { return before.contains(file); });
            CHECK(after.isEmpty());
            return failure.domain() == ImageImport::notAnImageDomain ? "not an image" : failure.description();
        }
        const QImage read(path("out.png"), "PNG");
        if (image)
            *image = read;
        return u"%1×%2"_qs.arg(read.width()).arg(read.height());
    }
};

bool isNear(const QImage &image, QPoint point, QColor colour)
{
    const QColor shown = image.pixelColor(point);
    const auto near = [](int a, int b) { return std::abs(a - b) < 40; };
    return near(shown.red(), colour.red()) && near(shown.green(), colour.green()) && near(shown.blue(), colour.blue());
}

const QString damaged = "The image file is damaged or incomplete.";
const QString tooLarge = "The image has too many pixels.";

} // namespace

TEST_CASE_FIXTURE(ImportFixture, "pictures of every format become PNG files that show the same")
{
    struct Case {
        const char *file; // With options of the writer.
        Colours colours = Colours::Plain;
    };

    for (const Case &tried : {
             Case{"plain.png"},
             Case{"interlaced.png[interlace]"},
             Case{"palette.png[palette]"},
             Case{"grey.png", Colours::Grey},
             Case{"deep.png", Colours::SixteenBits},
             Case{"plain.jpg"},
             Case{"progressive.jpg[interlace]"},
             Case{"cmyk.jpg", Colours::Cmyk},
             Case{"cmyk.tif", Colours::Cmyk},
             Case{"bare.jpg[strip]", Colours::Cmyk},
             Case{"tagged.jpg[profile=srgb]"},
             Case{"deep.tif[compression=lzw]", Colours::SixteenBits},
             Case{"tiled.tif[tile,compression=deflate]"},
             Case{"plain.webp"},
             Case{"lossless.webp[lossless]", Colours::Transparent},
             Case{"plain.gif"},
             Case{"plain.heic"},
             Case{"plain.avif"},
             Case{"clear.png", Colours::Transparent},
         }) {
        CAPTURE(QString(tried.file));
        REQUIRE(samples::write(path(tried.file), {.colours = tried.colours}));
        QImage image;
        CHECK(imported(QString(tried.file).section('[', 0, 0), &image) == "400×300");
        CHECK_FALSE(image.hasAlphaChannel());
        if (tried.colours == Colours::Plain || tried.colours == Colours::SixteenBits) {
            CHECK(isNear(image, {50, 150}, Qt::red));
            CHECK(isNear(image, {350, 150}, Qt::blue));
        } else if (tried.colours == Colours::Transparent) {
            CHECK_MESSAGE(isNear(image, {50, 150}, QColor(255, 127, 127)), "what is behind a picture is white");
        } else {
            CHECK(image.pixelColor(50, 150) != image.pixelColor(350, 150));
        }
        CHECK((QFile(path("out.png")).permissions() & (QFile::ReadGroup | QFile::ReadOther)) == QFile::Permissions());
    }
}

TEST_CASE_FIXTURE(ImportFixture, "a picture is turned upright, and a large one made smaller, never a small one larger")
{
    REQUIRE(samples::write(path("turned.jpg"), {.orientation = 6}));
    QImage image;
    CHECK(imported("turned.jpg", &image) == "300×400");
    CHECK(isNear(image, {150, 50}, Qt::red));
    CHECK(isNear(image, {150, 350}, Qt::blue));

    REQUIRE(samples::write(path("wide.png"), {.size = {12'000, 3'000}}));
    CHECK(imported("wide.png", &image) == "8192×2048");
    CHECK(isNear(image, {4000, 2000}, Qt::red));
    CHECK(isNear(image, {4200, 2000}, Qt::blue));
    REQUIRE(samples::write(path("high.tif"), {.size = {3, 9'000}}));
    CHECK(imported("high.tif") == "3×8192");
}

TEST_CASE_FIXTURE(ImportFixture, "a file that is no picture is said to be none")
{
    writeFile("empty.png", "");
    writeFile("text.png", "These are words and no picture at all.\n");
    writeFile("drawing.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"><rect/></svg>");
    writeFile("document.pdf", "%PDF-1.4\n1 0 obj<<>>endobj\n");
    writeFile("header.png", "\x89PNG\r\n\x1a\n");
    REQUIRE(QDir(folder.path()).mkdir("folder.png"));
    REQUIRE(::mkfifo(QFile::encodeName(path("pipe.png")).constData(), 0600) == 0);
    for (const char *name :
         {"empty.png", "text.png", "drawing.svg", "document.pdf", "header.png", "folder.png", "pipe.png"}) {
        CAPTURE(QString(name));
        CHECK(imported(name) == "not an image");
    }
    CHECK(imported("missing.png") == "No such file or directory.");
}

TEST_CASE_FIXTURE(ImportFixture, "a picture that is cut short is refused wherever it was cut")
{
    for (const char *format :
         {"a.png", "a.jpg", "b.jpg[interlace]", "a.tif[compression=lzw]", "a.webp", "a.gif", "a.heic", "a.avif"}) {
        CAPTURE(QString(format));
        const QString name = QString(format).section('[', 0, 0);
        REQUIRE(samples::write(path(format), {.isNoisy = true}));
        REQUIRE(imported(name) == "400×300");
        const QByteArray whole = bytes(name);
        for (const double part : {0.3, 0.6, 0.9, 0.99}) {
            CAPTURE(part);
            writeFile("cut" + name, whole.first(qsizetype(double(whole.size()) * part)));
            const QString answer = imported("cut" + name);
            CHECK_MESSAGE((answer == damaged || answer == "not an image"), answer);
        }
    }
}

TEST_CASE_FIXTURE(ImportFixture, "a picture of too many pixels is refused by its header")
{
    writeFile("bomb.png", samples::pngHeader(65535, 65535, 1, 0));
    CHECK(imported("bomb.png") == tooLarge);
    // The most that formats have that are read row by row, and one that must be read as a whole.
    writeFile("limit.png", samples::pngHeader(25'000, 20'001, 8, 2));
    CHECK(imported("limit.png") == tooLarge);
    // One row of it would fill more memory than a picture.
    writeFile("wide.png", samples::pngHeader(200'000, 1, 8, 2));
    CHECK(imported("wide.png") == tooLarge);
    writeFile("wider.png", samples::pngHeader(400'000'000, 1, 8, 2));
    CHECK(imported("wider.png") == "not an image"); // No PNG can be so wide, says what reads it.
    REQUIRE(samples::write(path("whole.webp[lossless,effort=0]"), {.size = {8'001, 8'000}}));
    CHECK(imported("whole.webp") == tooLarge);
    REQUIRE(samples::write(path("whole.jpg[interlace]"), {.size = {8'001, 8'000}}));
    CHECK(imported("whole.jpg") == tooLarge);
}

TEST_CASE_FIXTURE(ImportFixture, "a file that vanishes or shrinks while it is read does no harm")
{
    REQUIRE(samples::write(path("large.jpg"), {.size = {6'000, 4'000}, .isNoisy = true}));
    REQUIRE(samples::write(path("large.webp[effort=0]"), {.size = {4'000, 3'000}, .isNoisy = true}));
    for (const char *name : {"large.jpg", "large.webp"}) {
        const QByteArray whole = bytes(name);
        for (int round = 0; round < 4; ++round) {
            writeFile("victim", whole);
            std::atomic<bool> isRead = false;
            std::thread other([&] {
                // Cuts it shorter again and again, as a program that writes it anew does.
                for (int i = 0; !isRead; ++i)
                    QFile::resize(path("victim"), whole.size() * (i % 7) / 7);
            });
            const QString answer = imported("victim");
            isRead = true;
            other.join();
            CHECK_MESSAGE((answer == damaged || answer == "not an image" || answer.contains("×")), answer);
        }
    }
}
