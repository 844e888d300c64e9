// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/LinuxMailProgram.h"
#include "tests/Printing.h"
#include "tests/desktop/DesktopFile.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ardeno;

namespace {

// A user's own folders, with applications that only write down what they are given. One for the program, as the folders
// are looked up once.
struct MailDesktop {
    QTemporaryDir folder;

    MailDesktop()
    {
        qputenv("XDG_DATA_HOME", folder.filePath("data").toUtf8());
        qputenv("XDG_DATA_DIRS", folder.filePath("system").toUtf8());
        qputenv("XDG_CONFIG_HOME", folder.filePath("config").toUtf8());
        qputenv("XDG_CONFIG_DIRS", folder.filePath("config").toUtf8());
        qunsetenv("XDG_CURRENT_DESKTOP");
        QDir().mkpath(folder.filePath("data/applications"));
        QDir().mkpath(folder.filePath("config"));
    }

    void write(const QString &name, const QByteArray &content) const { writeFile(folder.filePath(name), content); }

    QByteArray read(const QString &name) const { return fileBytes(folder.filePath(name)); }

    void addProgram(const QString &name, const QByteArray &categories) const
    {
        const QString program = folder.filePath(name);
        const QByteArray target = folder.filePath(name + ".got").toUtf8();
        write(name,
              "#!/bin/sh\nprintf %s \"$1\" >\"" + target + ".new\" && mv \"" + target + ".new\" \"" + target + "\"\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        desktop_test::writeDesktopFile(folder.filePath("data/applications"), name,
                                       "Name=" + name.toUtf8() + "\nExec=" + program.toUtf8() +
                                           " %u\nMimeType=x-scheme-handler/mailto;\nCategories=" + categories);
    }

    void setDefault(const QByteArray &name) const
    {
        write("config/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=" + name + ".desktop\n");
    }

    // As installing applications writes it.
    void setRegistered(const QByteArray &files) const
    {
        write("data/applications/mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/mailto=" + files + "\n");
    }

    static MailDesktop &instance()
    {
        static MailDesktop desktop;
        return desktop;
    }
};

} // namespace

TEST_CASE("a draft goes to a mail program, and a browser is none")
{
    const MailDesktop &desktop = MailDesktop::instance();
    desktop.addProgram("surf", "Network;WebBrowser;");
    desktop.setDefault("surf");
    desktop.setRegistered("surf.desktop;broken.desktop;");
    desktop.write("data/applications/broken.desktop", "[Desktop Entry\nMimeType=x-scheme-handler/mailto;\n");
    const QUrl draft("mailto:a@example.org?subject=One%20%26%20two&body=Line%0Aline", QUrl::StrictMode);
    LinuxMailProgram program;
    CHECK_FALSE(program.openDraft(draft));
    CHECK_FALSE(program.openDraft(QUrl("https://example.org")));

    desktop.addProgram("letter", "Network;Email;");
    desktop.setRegistered("surf.desktop;broken.desktop;letter.desktop;");
    // It takes a moment until what was installed is noticed.
    REQUIRE(QTest::qWaitFor([&] { return program.openDraft(draft); }, 30'000));
    REQUIRE(QTest::qWaitFor([&] { return !desktop.read("letter.got").isEmpty(); }, 30'000));
    CHECK(desktop.read("letter.got") == draft.toEncoded());
    CHECK(desktop.read("surf.got").isEmpty());
    CHECK_FALSE(program.openDraft(QUrl("https://example.org")));
}
