// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AtomicFile.h"

#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/support/Children.h"
#include "tests/support/FailureOf.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <sys/stat.h>

#include <fcntl.h>

#include <csignal>
#include <vector>

using namespace ardeno;

namespace {

struct FileFixture {
    QTemporaryDir home;
    QString path = home.filePath("file.json");

    QStringList files() const
    {
        return QDir(home.path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    REQUIRE(::lstat(QFile::encodeName(path).constData(), &status) == 0);
    return status;
}

} // namespace

TEST_CASE_FIXTURE(FileFixture, "a file is the pieces one after the other, private, and its stamp tells of every change")
{
    // More pieces than one call of the system takes, some of them empty.
    const QByteArray piece(1000, 'x');
    std::vector<QByteArrayView> pieces(3000, piece);
    pieces[1] = {};
    pieces.emplace_back("end");
    const FileStamp first = AtomicFile::write(path, pieces).stamp;
    CHECK(fileBytes(path) == QByteArray(2'999'000, 'x') + "end");
    CHECK((statusOf(path).st_mode & 0777) == 0600);
    CHECK(files() == QStringList{"file.json"});
    CHECK(FileStamp::ofFile(path) == first);

    const FileStamp second = AtomicFile::write(path, "short").stamp;
    CHECK(fileBytes(path) == "short");
    CHECK(second != first);
    QFile file(path);
    REQUIRE(file.open(QIODevice::ReadWrite));
    file.write("SHORT");
    file.close();
    CHECK(FileStamp::ofFile(path) != second);
    CHECK_FALSE(FileStamp::ofFile(home.filePath("none")).has_value());
}

TEST_CASE_FIXTURE(FileFixture, "a link stays a link, wherever it leads")
{
    REQUIRE(QDir(home.path()).mkdir("elsewhere"));
    const QString target = home.filePath("elsewhere/real.json");
    REQUIRE(QFile::link("elsewhere/real.json", home.filePath("second")));
    REQUIRE(QFile::link(home.filePath("second"), path));
    AtomicFile::write(path, "through a link that leads nowhere yet");
    AtomicFile::write(path, "again");
    CHECK(fileBytes(target) == "again");
    CHECK(S_ISLNK(statusOf(path).st_mode));
    CHECK(S_ISLNK(statusOf(home.filePath("second")).st_mode));

    REQUIRE(QFile::link("circle", home.filePath("circle")));
    CHECK(failureOf([&] { AtomicFile::write(home.filePath("circle"), "x"); }) == "Too many levels of symbolic links.");
}

TEST_CASE_FIXTURE(FileFixture, "a failed write leaves the old file and nothing else")
{
    AtomicFile::write(path, "old");
    struct rlimit limit;
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const auto ignore = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {.rlim_cur = 1000, .rlim_max = limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const QString message = failureOf([&] { AtomicFile::write(path, QByteArray(5000, 'n')); });
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, ignore);
    CHECK(message == "File too large.");
    CHECK(fileBytes(path) == "old");
    CHECK(files() == QStringList{"file.json"});

    REQUIRE(QDir(home.path()).mkdir("folder"));
    CHECK(failureOf([&] { AtomicFile::write(home.filePath("folder"), "x"); }) == "Is a directory.");
    CHECK(failureOf([&] { AtomicFile::write(home.filePath("none/file"), "x"); }) == "No such file or directory.");
    CHECK(files() == QStringList{"file.json", "folder"});
}

TEST_CASE_FIXTURE(FileFixture, "what killed writers left goes, and nothing else")
{
    AtomicFile::write(path, "x");
    for (const char *name : {".file.json.3.writing", ".other.png.0.writing"})
        AtomicFile::writeNew(home.filePath(name), [](const auto &put) { put("left"); });
    AtomicFile::writeNew(home.filePath("kept.0.writing"), [](const auto &put) { put("of the user"); });
    REQUIRE(::mkfifo(QFile::encodeName(home.filePath(".pipe.1.writing")).constData(), 0600) == 0);
    AtomicFile::writeNew(home.filePath("living"), [this](const auto &) { AtomicFile::removeLeftovers(home.path()); });
    CHECK(files() == QStringList{".pipe.1.writing", "file.json", "kept.0.writing", "living"});
}

TEST_CASE_FIXTURE(FileFixture, "writers of the same file at the same time do not disturb each other")
{
    std::vector<Child> children;
    for (int i = 0; i < 3; ++i) {
        children.emplace_back([this, i](const Child::Signal &ready) {
            ready();
            const QByteArray content(100'000, static_cast<char>('a' + i));
            for (int n = 0; n < 40; ++n)
                AtomicFile::write(path, content);
        });
    }
    for (Child &child : children)
        CHECK(child.wait() == 0);
    const QByteArray content = fileBytes(path);
    CHECK(content == QByteArray(100'000, content[0]));
    CHECK(files() == QStringList{"file.json"});
}

TEST_CASE_FIXTURE(FileFixture, "a copy keeps its holes and never replaces anything")
{
    constexpr qint64 size = qint64{2} << 30;
    QFile sparse(path);
    REQUIRE(sparse.open(QIODevice::ReadWrite));
    sparse.write("begin");
    sparse.seek(size / 2);
    sparse.write("middle");
    REQUIRE(sparse.resize(size));
    const QString copy = home.filePath("copy");
    AtomicFile::copyToNew(path, copy);
    CHECK(statusOf(copy).st_size == size);
    CHECK(statusOf(copy).st_blocks <= statusOf(path).st_blocks + 64);
    QFile copied(copy);
    REQUIRE(copied.open(QIODevice::ReadOnly));
    CHECK(copied.read(5) == "begin");
    copied.seek(size / 2);
    CHECK(copied.read(6) == "middle");

    AtomicFile::write(path, "second");
    CHECK(failureOf([&] { AtomicFile::copyToNew(path, copy); }) == "File exists.");
    CHECK(failureOf([&] { AtomicFile::copyToNew(home.path(), home.filePath("b")); }).endsWith("is not a file."));
    CHECK(statusOf(copy).st_size == size);
    CHECK(files() == QStringList{"copy", "file.json"});
}

TEST_CASE_FIXTURE(FileFixture, "folders are made for the user alone, and existing ones stay as they are")
{
    const QString deep = home.filePath("a/b/c");
    AtomicFile::createFolder(deep);
    for (const char *name : {"a", "a/b", "a/b/c"})
        CHECK((statusOf(home.filePath(name)).st_mode & 0777) == 0700);
    ::chmod(QFile::encodeName(deep).constData(), 0755);
    AtomicFile::createFolder(deep);
    CHECK((statusOf(deep).st_mode & 0777) == 0755);
    AtomicFile::write(path, "x");
    const QString named = u"“%1”: Not a directory."_qs;
    CHECK(failureOf([&] { AtomicFile::createFolder(path); }) == named.arg(path));
    CHECK(failureOf([&] { AtomicFile::createFolder(path + "/below"); }) == named.arg(path + "/below"));
}
