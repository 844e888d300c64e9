// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/Program.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/DesktopFile.h"

#include <QCoreApplication>
#include <QImage>
#include <QJsonArray>

#include <csignal>
#include <sys/file.h>

using namespace ardeno;

namespace {

// A terminal whose window is listed by the window manager, as commands see windows.
struct Terminal {
    desktop_test::Application process;

    explicit Terminal(const QString &title, const QStringList &options = {})
        : process("xterm", options + QStringList{"-geometry", "60x20+200+150", "-T", title, "-e", "sleep 300"})
    {
        REQUIRE(desktop_test::eventually([&] { return desktop_test::outputOf("wmctrl", {"-l"}).contains(title); }));
    }
};

int coloured(const QImage &picture, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixel(x, y) == colour ? 1 : 0;
    }
    return count;
}

QStringList titles(const QJsonArray &records)
{
    QStringList titles;
    for (const QJsonValue &record : records)
        titles << record.toObject().value("title").toString();
    return titles;
}

} // namespace

TEST_CASE_FIXTURE(ProgramFixture, "a checkpoint is saved, listed and shown as the library stores it")
{
    const Terminal terminal("ablation run");
    const ProgramResult saved =
        run({"save", "--project", " Thesis ", "--next", "Re-run the ablation", "--no-tabs", "--json"});
    CAPTURE(saved.error);
    REQUIRE(saved.status == 0);
    CHECK(saved.error.isEmpty());
    const QString id = saved.json().value("id").toString();
    CHECK(saved.json().value("project") == "Thesis");
    CHECK(saved.json().value("apps") == 1);
    CHECK(saved.json().value("windows") == 1);
    CHECK(saved.json().value("tabs") == 0);
    CHECK(saved.json().value("notice") == "Checkpoint saved.");

    const QJsonObject listed = run({"list", "--json"}).json();
    const QJsonObject checkpoint =
        listed.value("projects").toArray().at(0).toObject().value("checkpoints").toArray().at(0).toObject();
    CHECK(checkpoint.value("id") == id);
    CHECK(checkpoint.value("displayName") == "Re-run the ablation");
    CHECK(QDateTime::fromString(checkpoint.value("createdAt").toString(), Qt::ISODate).isValid());

    const QJsonObject shown = run({"show", id.first(6).toLower(), "--json"}).json();
    CHECK(shown == library().value("checkpoints").toArray().at(0).toObject());
    CHECK(shown.value("apps").toArray().at(0).toObject().value("id") == "debian-xterm");
    CHECK(titles(shown.value("windows").toArray()) == QStringList{"ablation run"});
    const QImage picture(shown.value("screenshot").toString());
    CHECK(picture.size() == QSize(1920, 1080));
    CHECK(run({"show", id}).out.contains("Next step   Re-run the ablation"));
}

TEST_CASE_FIXTURE(ProgramFixture, "an excluded application is in no list, and allowing it brings it back")
{
    const Terminal terminal("secret work");
    CHECK(run({"exclude", "app", "debian-xterm"}).status == 0);
    CHECK(run({"exclude", "domain", "HTTPS://Bank.Example/account"}).status == 0);
    CHECK(run({"exclusions", "--json"}).out ==
          "{\"apps\":[{\"id\":\"debian-xterm\",\"name\":\"XTerm\"}],\"domains\":[\"bank.example\"]}\n");
    REQUIRE(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0);
    const QByteArray bytes = fileBytes(libraryPath());
    CHECK_FALSE(bytes.contains("secret work"));
    CHECK_FALSE(bytes.contains("debian-xterm"));

    CHECK(run({"allow", "app", "debian-xterm"}).status == 0);
    CHECK(run({"allow", "domain", "bank.example"}).status == 0);
    const ProgramResult again = run({"allow", "domain", "bank.example"});
    CHECK(again.status == 1);
    CHECK(again.error == "“bank.example” is not excluded.\n");
    CHECK(run({"save", "--project", "Thesis", "--no-tabs", "--json"}).json().value("windows") == 1);
}

TEST_CASE_FIXTURE(ProgramFixture,
                  "whatever becomes of an excluded application's desktop file, it is in no picture and no record")
{
    const Terminal terminal("secret work", {"-bg", "#ff00ff"});
    const auto pixels = [&] {
        const ProgramResult saved = run({"save", "--project", "Thesis", "--no-tabs", "--json"});
        CAPTURE(saved.error);
        REQUIRE(saved.status == 0);
        const QJsonObject shown = run({"show", saved.json().value("id").toString(), "--json"}).json();
        return std::pair(coloured(QImage(shown.value("screenshot").toString()), 0xffff00ff),
                         QJsonDocument(shown).toJson().contains("secret work"));
    };
    REQUIRE(pixels().first > 10'000);
    REQUIRE(pixels().second);
    REQUIRE(run({"exclude", "app", "Debian-XTerm"}).out == "XTerm is left out of captures.\n");
    CHECK(pixels() == std::pair(0, false));

    const QString applications = home.filePath("data/applications/");
    QDir().mkpath(applications);
    REQUIRE(QFile::copy("/usr/share/applications/debian-xterm.desktop", applications + "copy.desktop"));
    CHECK(pixels() == std::pair(0, false));
    QFile::remove(applications + "copy.desktop");
    for (const QByteArray line : {"NoDisplay=true", "Hidden=true"}) {
        CAPTURE(line);
        desktop_test::writeDesktopFile(applications, "debian-xterm", "Name=XTerm\nExec=xterm\n" + line);
        CHECK(pixels() == std::pair(0, false));
    }
    environment.insert("XDG_DATA_DIRS", home.filePath("nowhere"));
    QFile::remove(applications + "debian-xterm.desktop");
    CHECK(pixels() == std::pair(0, false));
}

TEST_CASE_FIXTURE(ProgramFixture, "each kind of failure has its exit status and names its reason")
{
    struct Case {
        QStringList arguments;
        int status;
        QByteArray message;
    };

    const QList<Case> cases = {
        {{"save"}, 2, "Name the project"},
        {{"save", "--project", "  "}, 2, "Name the project"},
        {{"save", "--project", "A", "--tabs", "--no-tabs"}, 2, "either --tabs or --no-tabs"},
        {{"save", "--project", "A", "surplus"}, 2, "options only"},
        {{"save", "--projct", "A"}, 2, "projct"},
        {{"save", "--project"}, 2, "project"},
        {{"fly"}, 2, "There is no command “fly”."},
        {{"show"}, 2, "ID"},
        {{"exclude", "window", "x"}, 2, "app ID"},
        {{"exclude", "domain", "*.example.com"}, 1, "Enter a valid website domain or an http/https URL."},
        {{"show", "ABC"}, 1, "There is no checkpoint “ABC”."},
        {{"list", "--project", "None"}, 1, "There is no project “None”."},
        {{"resume"}, 2, "Name one checkpoint"},
        {{"resume", "ABC", "--latest"}, 2, "Name one checkpoint"},
        {{"resume", "ABC", "--project", "A"}, 2, "together with --latest"},
        {{"resume", "--latest", "--layout", "--no-layout"}, 2, "either --layout or --no-layout"},
        {{"resume", "ABC"}, 1, "There is no checkpoint “ABC”."},
        {{"resume", "--latest"}, 1, "There is no checkpoint yet."},
        {{"record"}, 2, "start --project NAME"},
        {{"record", "pause"}, 2, "record stop"},
        {{"record", "start"}, 2, "Name the project"},
        {{"record", "stop", "--project", "A"}, 2, "record stop"},
        {{"record", "stop"}, 1, "No work session is being recorded."},
    };
    for (const Case &one : cases) {
        CAPTURE(one.arguments);
        const ProgramResult result = run(one.arguments);
        CHECK(result.status == one.status);
        CHECK(result.error.contains(one.message));
        CHECK(result.out.isEmpty());
    }
    CHECK_FALSE(QFile::exists(root()));
}

TEST_CASE_FIXTURE(ProgramFixture, "a session without pictures is refused with its reason, and nothing is written")
{
    const auto refuses = [this](const QByteArray &reason) {
        const ProgramResult result = run({"save", "--project", "A", "--no-tabs"});
        CHECK(result.status == 3);
        CHECK(result.error.contains(reason));
        CHECK_FALSE(QFile::exists(libraryPath()));
        CHECK(run({"list"}).status == 0);
        return run({"doctor", "--json"}).json();
    };
    const QString display = environment.value("DISPLAY");

    environment.insert("WAYLAND_DISPLAY", "wayland-0");
    CHECK(refuses("Wayland").value("session") == "wayland");
    environment.remove("WAYLAND_DISPLAY");
    const QString type = environment.value("XDG_SESSION_TYPE");
    environment.insert("XDG_SESSION_TYPE", "wayland");
    CHECK(refuses("Wayland").value("session") == "wayland");
    environment.insert("XDG_SESSION_TYPE", type);
    environment.insert("DISPLAY", ":99999");
    CHECK(refuses(":99999").value("session") == "none");
    environment.remove("DISPLAY");
    const QJsonArray capabilities = refuses("display").value("capabilities").toArray();
    CHECK(capabilities.at(0).toObject().value("state") == "unavailable");
    CHECK_FALSE(capabilities.at(0).toObject().value("reason").toString().isEmpty());

    environment.insert("DISPLAY", display);
    CHECK_FALSE(run({"doctor"}).out.contains("Safari")); // There is none on this desktop.
    CHECK(run({"doctor"}).out.contains("tabs of Firefox"));
    const QJsonObject report = run({"doctor", "--json"}).json();
    CHECK(report.value("session") == "x11");
    CHECK(report.value("capabilities").toArray().at(0).toObject().value("state") == "available");
}

TEST_CASE_FIXTURE(ProgramFixture,
                  "no command captures while exclusions cannot be read, and each says once how to go on")
{
    REQUIRE(run({"exclude", "domain", "bank.test"}).status == 0);
    writeFile(home.filePath("config/Ardeno/exclusions.json"));
    const QByteArray way = "ardeno exclusions --start-over";
    for (const QStringList &command : {QStringList{"save", "--project", "P"},
                                       {"exclude", "domain", "other.test"},
                                       {"allow", "domain", "bank.test"},
                                       {"exclusions"}}) {
        CAPTURE(command);
        const ProgramResult refused = run(command);
        CHECK(refused.status == 1);
        CHECK(refused.error.count(way) == 1);
        CHECK_FALSE(refused.error.contains("is not excluded"));
    }
    CHECK(run({"list", "--json"}).json().value("projects").toArray().isEmpty());
    const ProgramResult over = run({"exclusions", "--start-over"});
    CHECK(over.status == 0);
    CHECK(over.error.contains("exclusions-unreadable-"));
    CHECK_FALSE(over.error.contains(way));
    CHECK(run({"save", "--project", "P"}).status == 0);
}

TEST_CASE_FIXTURE(ProgramFixture, "a save that is interrupted is complete or leaves nothing, and says which")
{
    REQUIRE(run({"save", "--project", "A", "--no-tabs"}).status == 0);
    int refused = 0;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGINT, SIGINT, SIGINT}) {
        const auto before = checkpoints().size();
        const auto process = start({"save", "--project", "A", "--no-tabs"});
        const auto number = pid_t(process->processId());
        REQUIRE(desktop_test::eventually([&] { return notes(*process, signal); }));
        process->waitForFinished(20 * refused);
        ::kill(number, signal);
        const ProgramResult result = end(*process);
        CAPTURE(result.error);
        const bool isSaved = checkpoints().size() > before;
        const bool isOver = isSaved && result.status == -1; // The signal came when all was done and said.
        CHECK((isOver || result.status == (isSaved ? 0 : 128 + signal)));
        CHECK(result.out.contains("Checkpoint saved.") == isSaved);
        CHECK(result.error.contains("interrupted") == !isSaved);
        refused += isSaved ? 0 : 1;
        const auto folders = QDir(root()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
        CHECK(folders.size() == checkpoints().size());
    }
    CHECK(refused > 0);
}

TEST_CASE_FIXTURE(ProgramFixture, "where files may not grow, a save is refused and does not die of it")
{
    REQUIRE(run({"save", "--project", "A", "--no-tabs"}).status == 0);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start("sh", {"-c", "ulimit -f 4; exec \"$0\" save --project A --no-tabs", ARDENO_PROGRAM});
    const ProgramResult result = end(process);
    CHECK(result.status == 1);
    CHECK(result.error.contains("File too large."));
    CHECK(library().value("checkpoints").toArray().size() == 1);
}

TEST_CASE_FIXTURE(ProgramFixture, "what cannot be printed is said, and nothing is lost for it")
{
    const auto printingTo = [this](const QString &place, const QStringList &arguments) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start("sh", QStringList{"-c", "exec \"$0\" \"$@\" " + place, ARDENO_PROGRAM} + arguments);
        return end(process);
    };
    for (const QString &place : {QString(">/dev/full"), QString(">&-")}) {
        const ProgramResult saved = printingTo(place, {"save", "--project", "A", "--no-tabs"});
        CHECK(saved.status == 1);
        CHECK(saved.error.startsWith("The command was carried out, but its answer could not be written: "));
        CHECK(printingTo(place, {"list", "--json"}).status == 1);
    }
    const ProgramResult unheard = printingTo("| :; echo $?", {"list"});
    CHECK(unheard.error == "");
    CHECK(library().value("checkpoints").toArray().size() == 2);
}

TEST_CASE_FIXTURE(ProgramFixture, "names of any kind come through, and a terminal is never sent what is hidden in them")
{
    const QString odd =
        u"🧪 שלום \u202e\u001b[31mred\nline2 \u2067\u200b\u009b👩‍💻"_qs + QString(10'000, 'x');
    const ProgramResult saved = run({"save", "--project", odd, "--title", odd, "--no-tabs", "--json"});
    REQUIRE(saved.status == 0);
    CHECK(saved.json().value("title") == odd);
    CHECK(library().value("projects").toArray().at(0).toObject().value("name") == odd);
    const QString id = saved.json().value("id").toString();
    const QByteArray text = run({"list"}).out + run({"show", id}).out + run({"list", "--project", odd + '?'}).error;
    CHECK(text.contains("🧪 שלום  [31mred line2  👩‍💻xx"));
    CHECK(text.count('\n') == run({"show", id}).out.count('\n') + 3);
    for (const char *const hidden : {"\x1b", "\u202e", "\u2067", "\u200b", "\u009b"}) {
        CHECK_FALSE(text.contains(hidden));
        CHECK_FALSE(saved.out.contains(hidden));
    }
}

TEST_CASE_FIXTURE(ProgramFixture, "a library that cannot be read is reported, kept, and replaced only beside its copy")
{
    QDir().mkpath(root());
    writeFile(libraryPath(), "{\"version\":2,\"projects\":[],\"checkpoints\":[{\"id\":7}]}");

    const ProgramResult listed = run({"list"});
    CHECK(listed.status == 1);
    CHECK(listed.error.contains("checkpoints[0].id"));
    const ProgramResult saved = run({"save", "--project", "A", "--no-tabs"});
    CHECK(saved.status == 0);
    CHECK(saved.error.contains("Your saved checkpoints could not be read."));
    CHECK(QDir(root()).entryList({"checkpoints-unreadable-*.json"}).size() == 1);
}
