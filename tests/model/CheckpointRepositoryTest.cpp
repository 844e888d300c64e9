// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Failure.h"
#include "tests/model/RepositoryFixture.h"
#include "json/Json.h"

#include <QFileInfo>

#include <sys/stat.h>

#include <functional>

using namespace ardeno;

TEST_CASE_FIXTURE(RepositoryFixture, "the first save makes a private folder and a private file, and nothing else")
{
    CHECK(repository.loadLibrary() == WorkspaceLibrary{});
    CHECK_FALSE(QFile::exists(root));

    const WorkspaceLibrary library = makeLibrary(3);
    repository.saveLibrary(library);
    CHECK(files() == QStringList{"checkpoints.json"});
    CHECK(bytes() == json::encode(library));
    CHECK(CheckpointRepository(root).loadLibrary() == library);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    for (const QString &made : {home.filePath("data"), root, path()})
        CHECK((QFile::permissions(made) & others) == QFile::Permissions());
}

TEST_CASE_FIXTURE(RepositoryFixture, "a bare list of checkpoints is loaded with new projects and kept once")
{
    Checkpoint old{.title = "Thesis", .objective = "A", .decision = " B "};
    const QByteArray legacy = " \r\n\t[" + json::encode(old) + "]";
    put(legacy);

    const WorkspaceLibrary library = repository.loadLibrary();
    CHECK(bytes() == legacy);
    REQUIRE(library.projects.size() == 1);
    CHECK(library.projects[0].name == "Thesis");
    CHECK(library.checkpoints[0].projectID == library.projects[0].id);
    CHECK(library.checkpoints[0].objective == "A\n\n B ");

    repository.saveLibrary(library);
    repository.saveLibrary(library);
    CHECK(bytes("checkpoints-before-projects.json") == legacy);
    CHECK(files().size() == 2);
    CHECK(CheckpointRepository(root).loadLibrary() == library);

    // A second old file does not replace the way back.
    put("[]");
    CHECK(repository.loadLibrary() == WorkspaceLibrary{});
    repository.saveLibrary(library);
    CHECK(bytes("checkpoints-before-projects.json") == legacy);
    CHECK(bytes() == json::encode(library));
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library with decisions to merge is kept once before they are")
{
    WorkspaceLibrary library = makeLibrary(2);
    library.checkpoints[0].decision = " \n ";
    put(json::encode(library));
    repository.saveLibrary(repository.loadLibrary());
    CHECK(files() == QStringList{"checkpoints.json"});

    library.checkpoints[1].decision = "Decided";
    const QByteArray old = json::encode(library);
    put(old);
    const WorkspaceLibrary merged = repository.loadLibrary();
    CHECK(merged.checkpoints[1].objective == "Decided");
    repository.saveLibrary(merged);
    CHECK(bytes("checkpoints-before-context-merge.json") == old);
    put(old);
    CHECK(repository.loadLibrary() == merged);
    put("changed", "checkpoints-before-context-merge.json");
    repository.saveLibrary(merged);
    CHECK(bytes("checkpoints-before-context-merge.json") == "changed");
    CHECK(bytes() == json::encode(merged));
}

TEST_CASE_FIXTURE(RepositoryFixture, "what is saved is what was given, whatever was saved or loaded before")
{
    WorkspaceLibrary library = makeLibrary(5);
    put(json::encode(library).replace("\"next\"", "\"n\\u0065xt\"").replace("{\"id\"", "{ \"unknown\":1, \"id\""));
    library = repository.loadLibrary();
    const auto check = [&] {
        repository.saveLibrary(library);
        CHECK(CheckpointRepository(root).loadLibrary() == library);
        CHECK(bytes() == json::encode(library));
    };
    check();
    library.checkpoints[2].nextStep += "!";
    check();
    library.checkpoints[3].tabs[0].url = "https://example.org";
    library.checkpoints.move(3, 0);
    check();
    library.checkpoints.removeAt(1);
    library.checkpoints.prepend(makeCheckpoint("new", library.projects[0].id));
    check();
    library.checkpoints.append(library.checkpoints[0]); // Twice the same identifier, with other content.
    library.checkpoints.last().title = "copy";
    check();
    library.checkpoints[0].windows = QList<SavedWindow>{};
    check();
    library.checkpoints[0].windows.reset();
    check();
    library.checkpoints.clear();
    check();
}

TEST_CASE_FIXTURE(RepositoryFixture, "what cannot be read is kept beside the new library, each time under a new name")
{
    const QByteArray contents[] = {
        "",
        "  \n",
        json::encode(makeLibrary(2)).chopped(10),
        QByteArray("\x7f"
                   "ELF\0\1\2\3",
                   8),
        R"({"version":2,"projects":{},"checkpoints":[]})",
        R"({"version":2,"projects":[],"checkpoints":)" + QByteArray(2'000'000, '[') + "}",
    };
    QStringList kept;
    for (const QByteArray &content : contents) {
        put(content);
        CHECK(loadFailure().startsWith(u"“checkpoints.json” is damaged. "_qs));
        CHECK(bytes() == content);

        const LibraryWrite written = repository.saveLibrary(makeLibrary(1));
        REQUIRE(written.keptCopy.has_value());
        CHECK(bytes(QFileInfo(*written.keptCopy).fileName()) == content);
        kept.append(QFileInfo(*written.keptCopy).fileName());
        CHECK(repository.loadLibrary().checkpoints.size() == 1);
        CHECK_FALSE(repository.saveLibrary(makeLibrary(2)).keptCopy.has_value());
    }
    kept.sort();
    CHECK(keptCopies() == kept);
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library that somebody else put there is never replaced")
{
    const WorkspaceLibrary mine = makeLibrary(2);
    const QByteArray theirs = json::encode(makeLibrary(5));

    struct Past {
        const char *name;
        std::function<void()> happen;
    };

    const Past pasts[] = {
        {"nothing was read", [] {}},
        {"there was none", [&] { loadFailure(); }},
        {"it was damaged", [&] { put("damaged"), loadFailure(); }},
        {"it was a folder", [&] { QDir(root).mkdir("checkpoints.json"), loadFailure(); }},
        {"another was read", [&] { put(json::encode(mine)), loadFailure(); }},
        {"another was written", [&] { saveFailure(mine); }},
        {"another was removed", [&] { saveFailure(mine), QFile::remove(path()); }},
    };
    QDir().mkpath(root);
    for (const Past &past : pasts) {
        CAPTURE(past.name);
        repository = CheckpointRepository(root);
        past.happen();
        QDir(root).rmdir("checkpoints.json");
        put(theirs);
        CHECK(saveFailure(mine).contains("changed by another program"));
        CHECK(saveFailure(mine).contains("changed by another program"));
        CHECK(bytes() == theirs);
        WorkspaceLibrary taken = repository.loadLibrary();
        taken.checkpoints.append(makeCheckpoint("new", taken.projects[0].id));
        CHECK(saveFailure(taken) == "no failure");
        CHECK(bytes() == json::encode(taken));
        CHECK(QFile::remove(path()));
    }
    CHECK(files().isEmpty());

    // The same library once more, as a tool that restores it writes it, is nothing new; one that is gone can be
    // replaced.
    repository.saveLibrary(mine);
    const QByteArray same = bytes();
    QFile::remove(path());
    put(same);
    CHECK(saveFailure(mine) == "no failure");
    QFile::remove(path());
    CHECK(saveFailure(mine) == "no failure");
    CHECK(bytes() == same);
}

TEST_CASE_FIXTURE(RepositoryFixture, "a library of a newer version is neither read nor replaced")
{
    const QByteArray contents[] = {
        R"({"version":3,"projects":[{"a":1}],"timeline":[]})",
        R"({"checkpoints":[{"id":7}],"projects":[],"version":3})", // A tool has sorted its keys.
        R"({"checkpoints":{"byMonth":[]},"projects":"elsewhere","theme":{"a":[1,{}]},"version":4e0})",
    };
    for (const QByteArray &newer : contents) {
        put(newer);
        CHECK(loadFailure().contains("newer version"));
        CHECK(saveFailure(makeLibrary(1)).contains("newer version"));
        CHECK(bytes() == newer);
        CHECK(files().size() == 1);

        // Also when it comes while the program runs.
        put(json::encode(makeLibrary(1)));
        repository.saveLibrary(repository.loadLibrary());
        put(newer);
        CHECK(saveFailure(makeLibrary(1)).contains("newer version"));
        CHECK(bytes() == newer);
    }
}

TEST_CASE_FIXTURE(RepositoryFixture, "identifiers are written in capitals, also those of records that did not change")
{
    const WorkspaceLibrary library = makeLibrary(3);
    const QByteArray capitals = json::encode(library);
    QByteArray small = capitals;
    for (const Checkpoint &checkpoint : library.checkpoints.first(2))
        small.replace(uuidText(checkpoint.id).toUtf8(), uuidText(checkpoint.id).toLower().toUtf8());
    small.replace(uuidText(library.projects[0].id).toUtf8(), uuidText(library.projects[0].id).toLower().toUtf8());
    REQUIRE(small != capitals);
    put(small);
    repository.saveLibrary(repository.loadLibrary());
    CHECK(bytes() == capitals);
}

TEST_CASE_FIXTURE(RepositoryFixture, "a folder that others may write to is told of")
{
    CHECK(repository.warnings().isEmpty());
    repository.saveLibrary({});
    for (const auto &[mode, isOpen] :
         {std::pair(0700, false), {0755, false}, {0770, true}, {0707, true}, {01777, true}}) {
        CAPTURE(mode);
        ::chmod(QFile::encodeName(root).constData(), static_cast<mode_t>(mode));
        CHECK(repository.warnings().size() == (isOpen ? 1 : 0));
    }
}

TEST_CASE_FIXTURE(RepositoryFixture, "a checkpoint has a media folder of its own")
{
    const QUuid id("{abcdef01-2345-6789-abcd-ef0123456789}");
    const QString folder = repository.directory(id);
    CHECK(folder == path("ABCDEF01-2345-6789-ABCD-EF0123456789"));
    CHECK(repository.directory(id) == folder);
    CHECK(MediaFile::importedImage() != MediaFile::importedImage());

    QDir().rmdir(folder);
    put("in the way", uuidText(id));
    CHECK(failureOf([&] { repository.directory(id); }).endsWith(": Not a directory."));
}
