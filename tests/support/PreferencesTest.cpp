// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Preferences.h"

#include "tests/Printing.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <sys/stat.h>

#include <functional>

using namespace ardeno;

namespace {

constexpr PreferenceKey<QString> name{"name"};
constexpr PreferenceKey<QByteArray> bytes{"bytes"};

} // namespace

TEST_CASE("settings last, and only the user may enter their folder")
{
    const QTemporaryDir home;
    const QString folder = home.filePath("Ardeno");
    {
        Preferences preferences(folder);
        CHECK_FALSE(preferences.value(name).has_value());
        preferences.setValue(name, u"Ünï, code; \"quoted\"\n\u2028"_qs);
        preferences.setValue(bytes, QByteArray("\0\xff\n", 3));
        CHECK(preferences.synchronise());
    }
    Preferences again(folder);
    CHECK(again.value(name) == u"Ünï, code; \"quoted\"\n\u2028"_qs);
    CHECK(again.value(bytes) == QByteArray("\0\xff\n", 3));
    CHECK((QFile::permissions(folder) & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther)) ==
          QFile::Permissions());
}

TEST_CASE("what cannot be read as settings is kept beside the new ones, and waited for by nobody")
{
    QTemporaryFile thesis;
    REQUIRE(thesis.open());
    thesis.write("mine = yours\n");
    thesis.close();
    const std::function<void(const QString &)> obstacles[] = {
        [](const QString &path) {
            QFile file(path);
            REQUIRE(file.open(QIODevice::WriteOnly));
            file.write("[[[\nno equals sign\n=\n%zz");
        },
        [](const QString &path) { REQUIRE(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0); },
        [](const QString &path) { REQUIRE(QDir().mkpath(path + "/folder")); },
        [](const QString &path) { REQUIRE(QFile::link(path, path)); },
        [&](const QString &path) { REQUIRE(QFile::link(thesis.fileName(), path)); },
        [](const QString &path) {
            QFile file(path);
            REQUIRE(file.open(QIODevice::WriteOnly));
            file.write(QByteArray(100, '\0'));
        },
    };
    for (const auto &make : obstacles) {
        const QTemporaryDir folder;
        make(folder.filePath("settings.ini"));
        Preferences preferences(folder.path());
        preferences.setValue(name, QString("new"));
        REQUIRE(preferences.synchronise());

        CHECK_FALSE(preferences.unreadableNote().isEmpty());
        const auto all = QDir::AllEntries | QDir::System;
        CHECK(QDir(folder.path()).entryList({"settings-unreadable-*.ini"}, all).size() == 1);
    }
    REQUIRE(thesis.open());
    CHECK_MESSAGE(thesis.readAll() == "mine = yours\n", "what a link leads to is not ours");
}

TEST_CASE("a lock that somebody left beside the settings holds nobody up")
{
    const QTemporaryDir folder;
    const QString lock = folder.filePath("settings.ini.lock");
    QFile file(lock);
    REQUIRE(file.open(QIODevice::WriteOnly));
    file.write("1\nother\nelsewhere\n\n\n");
    // From a clock that is ahead, so that it never grows old.
    REQUIRE(file.setFileTime(QDateTime::currentDateTime().addYears(1), QFileDevice::FileModificationTime));
    file.close();
    Preferences preferences(folder.path());
    preferences.setValue(name, QString("new"));
    CHECK(preferences.synchronise());
    CHECK(Preferences(folder.path()).value(name) == "new");

    REQUIRE(QDir().mkpath(lock + "/folder"));
    preferences.setValue(name, QString("newer"));
    CHECK_FALSE(preferences.synchronise());
    CHECK(QDir(lock).exists("folder"));
}
