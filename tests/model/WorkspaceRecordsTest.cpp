// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/WorkspaceRecords.h"

#include "tests/Printing.h"

#include <QSet>

using namespace ardeno;

namespace {

Checkpoint titled(const QString &title, std::optional<QUuid> projectID = {})
{
    return {.title = title, .projectID = projectID};
}

} // namespace

TEST_CASE("only web addresses with a host are safe to open")
{
    struct Case {
        QString url;
        bool isSafe;
    };

    const Case cases[] = {
        {"https://example.org/a?b#c", true},
        {"HTTPS://EXAMPLE.org", true},
        {"http://localhost:8080/", true},
        {u"https://bücher.example/ä"_qs, true},
        {"https://example.org/search?q={a|b}&c=d e", true},
        {"http:///path", false},
        {"http:example.org", false},
        {"https://", false},
        {"file:///etc/passwd", false},
        {"about:blank", false},
        {"javascript:alert(1)//http://example.org", false},
        {"ftp://example.org", false},
        {"example.org", false},
        {"http://[::1", false},
        {"", false},
    };
    for (const Case &c : cases) {
        CAPTURE(c.url);
        CHECK(SavedTab{.url = c.url}.safeURL().has_value() == c.isSafe);
    }
}

TEST_CASE("a checkpoint shows the first line of its next step without the list marker, else its title")
{
    struct Case {
        QString nextStep;
        QString shown;
    };

    const Case cases[] = {
        {"", "Title"},
        {" \n\t\r\n", "Title"},
        {u"\n  • Fix the login bug"_qs, "Fix the login bug"},
        {"12) ", "Title"},
        {u"•"_qs, "Title"},
        {"12. Call back\nsecond", "Call back"},
        {u"−\u00a0minus sign"_qs, "minus sign"},
        {"* * twice", "* twice"},
        {"-x", "-x"},
        {"3.5 percent", "3.5 percent"},
        {"12", "12"},
        {u"٣. Arabic digits are no marker"_qs, u"٣. Arabic digits are no marker"_qs},
        {u"\u2028first\u2029second"_qs, "first"},
        {u"one\u0085two"_qs, "one"},
        {"a\vb", "a"},
    };
    for (const Case &c : cases) {
        CAPTURE(c.nextStep);
        CHECK(Checkpoint{.title = "Title", .nextStep = c.nextStep}.displayName() == c.shown);
    }
}

TEST_CASE("an old decision moves to the end of the objective as it was written")
{
    struct Case {
        QString objective;
        QString decision;
        QString merged;
    };

    const Case cases[] = {
        {"A", "  B ", "A\n\n  B "}, {"  ", " B", " B"}, {"A", " \n", "A"}, {"", "", ""}, {" A ", "B", " A \n\nB"},
    };
    for (const Case &c : cases) {
        Checkpoint checkpoint{.objective = c.objective, .decision = c.decision};
        checkpoint.mergeLegacyDecision();
        CHECK(checkpoint.objective == c.merged);
        CHECK(checkpoint.decision.isEmpty());
    }
}

TEST_CASE("a blocked project always has a reason to show")
{
    CHECK(Project{.blockedReason = "  Waiting\n"}.blockerDescription() == "Waiting");
    CHECK(Project{.blockedReason = " \n "}.blockerDescription() == "No reason added yet.");
    CHECK(Project{}.blockerDescription() == "No reason added yet.");
}

TEST_CASE("checkpoints without a project join the first one of their name")
{
    const Project first{.name = u"STRASSE"_qs};
    const Project second{.name = u"Straße"_qs};
    WorkspaceLibrary library{.projects = {first, second}};
    library.checkpoints = {
        titled(u" straße\n"_qs),         titled("Other", second.id), titled("Thesis"), titled("  THESIS "), titled(""),
        titled(" ", QUuid::createUuid())};
    library.checkpoints[2].createdAt = Date{5};
    library.checkpoints[0].decision = "Decided";
    library.assignMissingProjects();

    const auto projectOf = [&](int i) { return library.checkpoints[i].projectID; };
    CHECK(projectOf(0) == first.id);
    CHECK(projectOf(1) == second.id);
    REQUIRE(library.projects.size() == 4);
    CHECK(library.projects[2] == Project{.id = library.projects[2].id, .name = "Thesis", .createdAt = Date{5}});
    CHECK(projectOf(2) == library.projects[2].id);
    CHECK(projectOf(3) == projectOf(2));
    CHECK(library.projects[3].name == "Imported project");
    CHECK(projectOf(4) == library.projects[3].id);
    CHECK(projectOf(5) == projectOf(4));
    CHECK(library.checkpoints[0].objective == "Decided");

    // A second time there is nothing left to do, and nothing is copied.
    const WorkspaceLibrary before = library;
    library.assignMissingProjects();
    CHECK(library == before);
    CHECK(std::as_const(library.checkpoints).constData() == before.checkpoints.constData());
}

TEST_CASE("equal tabs have equal hashes, and any field makes a difference")
{
    const SavedTab tab{.title = "T", .url = "u", .browserID = "b", .capturedAt = Date{1}};
    QSet<SavedTab> tabs = {tab, SavedTab(tab)};
    CHECK(tabs.size() == 1);
    SavedTab other = tab;
    other.capturedAt.reset();
    CHECK_FALSE(tabs.contains(other));
    other = tab;
    other.id = QUuid::createUuid();
    CHECK_FALSE(tabs.contains(other));
    CHECK(QSet<SavedApp>{{"a", "b"}, {"a", "c"}, {"a", "b"}}.size() == 2);
    CHECK(uuidText(QUuid("{abcdef01-2345-6789-abcd-ef0123456789}")) == "ABCDEF01-2345-6789-ABCD-EF0123456789");
}
