// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/files/SlowMounts.h"
#include "platform/linux/files/PathEntry.h"
#include "tests/support/Files.h"

#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <semaphore>

using namespace ardeno;
using namespace std::chrono_literals;

namespace {

using Kind = PathFacts::Kind;

// A machine whose disks answer when the test lets them.
struct Disks {
    QTemporaryDir folder;
    QString root = QFileInfo(folder.path()).canonicalFilePath();
    QByteArray table = "1 0 8:1 / / rw - ext4 /dev/root rw\n";
    SlowMounts mounts{[this] { return table; }, "/home/me"};
    std::shared_ptr<std::counting_semaphore<>> gate = std::make_shared<std::counting_semaphore<>>(0);

    ~Disks() { gate->release(100); }

    QByteArray mount(const QString &name, const char *system, int number = 2)
    {
        QDir().mkpath(root + '/' + name);
        const QByteArray point = (root + '/' + name).toUtf8();
        table += QByteArray::number(number) + " 1 0:40 / " + QByteArray(point).replace(' ', "\\040") +
                 " rw shared:1 master:2 - " + system + " source rw\n";
        return point;
    }

    // Of a question that is never answered before the test ends.
    bool hangs(const QByteArray &path)
    {
        return !mounts.ask(path, [gate = gate] { return gate->acquire(), true; }, 1ms);
    }

    Kind kind(const QString &path) { return PathEntry::of(root + path, mounts, 1ms).facts.kind; }

    QString write(const QString &name) const
    {
        writeFile(root + '/' + name);
        return name;
    }
};

} // namespace

TEST_CASE("the disks of networks and programs and those that were plugged in may be slow, but not the home's")
{
    const QByteArray table = "1 0 8:1 / / rw - ext4 /dev/a rw\n"
                             "2 1 0:2 / /home rw - nfs4 host:/home rw\n"
                             "3 1 0:3 / /net rw - autofs auto rw\n"
                             "4 1 0:4 / /run/user/1/gvfs rw - fuse.gvfsd-fuse gvfs rw\n"
                             "5 1 8:2 / /media/me/My\\040Stick rw - vfat /dev/b rw\n"
                             "6 3 8:3 / /net/local rw - ext4 /dev/c rw\n"
                             "7 1 8:4 / /srv rw shared:7 - ext4 /dev/d rw\nbroken\n";
    SlowMounts mounts([&] { return table; }, "/home/me");
    for (const char *path : {"/net", "/net/a", "/run/user/1/gvfs/a", "/media/me/My Stick/a"})
        CHECK_MESSAGE(mounts.isSlow(path), path);
    for (const char *path : {"/", "/home/me/a", "/network", "/net/local/a", "/media/me", "/srv/a", "relative"})
        CHECK_MESSAGE(!mounts.isSlow(path), path);
}

TEST_CASE_FIXTURE(Disks, "a disk that does not answer is asked once, until it is another one; the others go on")
{
    const QByteArray dead = mount("dead disk", "fuse.sshfs");
    const QByteArray alive = mount("alive", "nfs", 3);
    std::atomic<int> asked = 0;
    const auto count = [&asked] { return ++asked; };

    REQUIRE(hangs(dead));
    CHECK_FALSE(mounts.ask(dead + "/other", count, 1ms));
    CHECK_FALSE(mounts.ask(dead, count, 1ms));
    CHECK(mounts.ask(alive, count, 1min) == 1);
    CHECK(mounts.ask(root.toUtf8(), count, 1ms) == 2);
    CHECK_THROWS_AS(mounts.ask(alive, []() -> int { throw std::bad_alloc(); }, 1min), std::bad_alloc);
    CHECK(mounts.ask(alive, count, 1min) == 3);

    SUBCASE("it comes back")
    {
        gate->release();
    }
    SUBCASE("another one is mounted there")
    {
        mount("dead disk", "fuse.sshfs", 4);
    }
    CHECK(QTest::qWaitFor([&] { return mounts.ask(dead, count, 1s).has_value(); }));
}

TEST_CASE_FIXTURE(Disks, "a path is followed step by step, and nothing is asked of a disk that does not answer")
{
    const QByteArray dead = mount("dead", "nfs4");
    QDir().mkpath(root + "/folder/deep");
    write("folder/file");
    QFile::link("../folder/./file", root + "/folder/deep/link"); // Leads nowhere.
    QFile::link(root + "/dead/x", root + "/far");
    QFile::link("loop", root + "/loop");
    QFile::link("gone", root + "/broken");
    REQUIRE(hangs(dead));

    CHECK(PathEntry::of(root + "/folder/deep/../deep/link", mounts, 1ms).facts ==
          PathFacts{Kind::Missing, root + "/folder/deep/../deep/link"});
    CHECK(kind("/folder//deep/../file") == Kind::File);
    CHECK(kind("/folder/deep/..") == Kind::Folder);
    for (const char *path : {"/loop", "/broken", "/none/../folder", "/folder/file/..", "/folder/file/x"})
        CHECK_MESSAGE(kind(path) == Kind::Missing, path);
    for (const char *path : {"/dead", "/dead/a/b", "/far", "/far/a", "/folder/../dead/../folder"})
        CHECK_MESSAGE(kind(path) == Kind::Silent, path);
    QFile::link("../file", root + "/folder/deep/near");
    CHECK(PathEntry::of(root + "/folder/deep/near", mounts, 1ms).facts == PathFacts{Kind::File, root + "/folder/file"});
    CHECK(PathEntry::of("/dev/null", mounts, 1ms).facts.kind == Kind::Other);
    CHECK(PathEntry::of("relative", mounts, 1ms).facts.kind == Kind::Missing);
}
