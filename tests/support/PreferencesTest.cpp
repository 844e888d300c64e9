// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Preferences.h"

#include "tests/Printing.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <sys/stat.h>

#include <functional>

using namespace ardeno;

namespace {

constexpr PreferenceKey<QString> name{"name"};
constexpr PreferenceKey<QDateTime> date{"date"};

} // namespace

TEST_CASE("settings last, and only the user may enter their folder")
{
    const QTemporaryDir home;
    const QString folder = home.filePath("Ardeno");
    {
        Preferences preferences(folder);
        CHECK_FALSE(preferences.value(name).has_value());
        preferences.setValue(name, u"Ünï, code; \"quoted\"\n\u2028"_qs);
        preferences.setValue(date, QDateTime(QDate(2026, 2, 3), QTime(4, 5), Qt::UTC));
        CHECK(Preferences(folder).value(name).has_value());
        CHECK(preferences.synchronise());
    }
    Preferences again(folder);
    CHECK(again.value(name) == u"Ünï, code; \"quoted\"\n\u2028"_qs);
    CHECK(again.value(date) == QDateTime(QDate(2026, 2, 3), QTime(4, 5), Qt::UTC));
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
        [](const QString &path) { writeFile(path, "{\"name\": \"cut o"); },
        [](const QString &path) { writeFile(path, {}); },
        [](const QString &path) { writeFile(path, QByteArray(100, '\0')); },
        [](const QString &path) { writeFile(path.chopped(4) + "ini", "[[[\nno equals sign\n=\n%zz"); },
        [](const QString &path) { writeFile(path.chopped(4) + "ini", {}); },
        [](const QString &path) { REQUIRE(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0); },
        [](const QString &path) { REQUIRE(QDir().mkpath(path + "/folder")); },
        [](const QString &path) { REQUIRE(QFile::link(path, path)); },
        [&](const QString &path) { REQUIRE(QFile::link(thesis.fileName(), path)); },
    };
    for (const auto &make : obstacles) {
        const QTemporaryDir folder;
        make(folder.filePath("settings.json"));
        Preferences preferences(folder.path());
        CAPTURE(preferences.unreadableNote());
        preferences.setValue(name, QString("new"));
        REQUIRE(preferences.synchronise());

        CHECK_FALSE(preferences.unreadableNote().isEmpty());
        CHECK(preferences.mayBeMissing());
        const auto all = QDir::AllEntries | QDir::System;
        CHECK(QDir(folder.path()).entryList({"settings-unreadable-*"}, all).size() == 1);
    }
    REQUIRE(thesis.open());
    CHECK_MESSAGE(thesis.readAll() == "mine = yours\n", "what a link leads to is not ours");
}

TEST_CASE("settings of the older form are taken over once")
{
    const QTemporaryDir folder;
    writeFile(
        folder.filePath("settings.ini"),
        "[General]\nname=\"a; "
        "b\"\ndate=@DateTime(\\0\\0\\0\\x10\\0\\0\\0\\0\\0\\0%\\x8c\\x9a\\0\\xe0U\\xc0\\x1)\nkept=@ByteArray({})\n");
    const auto stored = [&] { return Preferences(folder.path()); };
    CHECK(stored().wereRead());
    CHECK(stored().value(name) == "a; b");
    stored().setValue(name, QString("new"));
    CHECK(stored().value(PreferenceKey<QByteArray>{"kept"}) == "{}");
    CHECK_FALSE(QFile::exists(folder.filePath("settings.ini")));
    CHECK(stored().value(name) == "new");
}

TEST_CASE("a change that could not be written is written by a later one, and nothing of others is lost")
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("settings.json");
    Preferences preferences(folder.path());
    preferences.setValue(name, QString("one"));
    REQUIRE(preferences.synchronise());
    writeFile(path, "{\"name\": \"one\", \"other\": \"theirs\"}");
    REQUIRE(QFile::rename(path, path + ".away"));
    REQUIRE(QDir().mkpath(path + "/in-the-way"));
    preferences.setValue(name, QString("two"));
    CHECK_FALSE(preferences.synchronise());
    REQUIRE(QDir(path).removeRecursively());
    REQUIRE(QFile::rename(path + ".away", path));
    CHECK(preferences.synchronise());
    CHECK(preferences.value(PreferenceKey<QString>{"other"}) == "theirs");
    CHECK(preferences.value(name) == "two");
}
