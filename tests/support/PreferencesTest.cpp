// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Preferences.h"

#include "tests/Printing.h"

#include <QDir>
#include <QTemporaryDir>

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

TEST_CASE("damaged settings are kept beside the new ones")
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("settings.ini"));
    REQUIRE(file.open(QIODevice::WriteOnly));
    file.write("[[[\nno equals sign\n=\n%zz");
    file.close();

    Preferences preferences(folder.path());
    preferences.setValue(name, QString("new"));
    REQUIRE(preferences.synchronise());

    CHECK_FALSE(preferences.unreadableNote().isEmpty());
    CHECK(QDir(folder.path()).entryList({"settings-unreadable-*.ini"}).size() == 1);
}
