// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/AppUpdateManifest.h"
#include "services/UpdateVersion.h"
#include "tests/Printing.h"

using namespace ardeno;

TEST_CASE("versions are ordered by their numbers, and what is no number is 0")
{
    struct Case {
        QString candidate;
        QString current;
        bool isNewer;
    };

    const QString endless = QString("9").repeated(10'000);
    const QList<Case> cases = {
        {"1.4", "1.4.0", false},
        {"1.4.1", "1.4.0", true},
        {"1.10", "1.9", true},
        {"1.9", "1.10", false},
        {"2.0-beta", "2.0", false},
        {"1..3", "1.2", true},
        {".1.3.", "1.2", true},
        {"-1", "0", false},
        {"+2", "1", true},
        {" 2", "1", false}, // With a space it is no number.
        {u"２"_qs, "1", false},
        {"", "0.1.0", false},
        {"0.1.1", "0.1.0", true},
        {endless, "1", false}, // Too large to be a number.
        {"1." + endless, "1.0", false},
        {QString("1.").repeated(5'000) + "2", "1", true},
    };
    for (const Case &each : cases) {
        CAPTURE(each.candidate.left(40));
        CHECK(UpdateVersion::isNewer(each.candidate, each.current) == each.isNewer);
    }
    CHECK(UpdateVersion::parts("1.2.3-beta") == QList<qint64>{1, 2, 0});
}

TEST_CASE("a manifest is read whole or not at all")
{
    const QByteArray whole = R"({"latestVersion": "1.2", "minimumSupportedVersion": "1.0", "releaseNotes": ["a", "b"],
        "releaseNotesURL": "https://example.org/notes", "downloadURL": "http://example.org/x", "more": {"a": 1}})";
    const AppUpdateManifest expected{.latestVersion = "1.2",
                                     .minimumSupportedVersion = "1.0",
                                     .releaseNotes = {"a", "b"},
                                     .releaseNotesURL = QUrl("https://example.org/notes"),
                                     .downloadURL = QUrl("http://example.org/x")};
    CHECK(AppUpdateManifest::fromJson(whole) == expected);
    const AppUpdateManifest least{.latestVersion = "1"};
    CHECK(AppUpdateManifest::fromJson(R"({"latestVersion": "1", "releaseNotes": []})") == least);
    CHECK(AppUpdateManifest::fromJson(R"({"latestVersion": "1", "releaseNotes": [], "downloadURL": null})") == least);

    const QList<QByteArray> refused = {
        "",
        "[]",
        "null",
        "{",
        whole.left(whole.size() - 1),
        R"({"latestVersion": "1"})",
        R"({"releaseNotes": []})",
        R"({"latestVersion": 1, "releaseNotes": []})",
        R"({"latestVersion": null, "releaseNotes": []})",
        R"({"latestVersion": "1", "releaseNotes": "a"})",
        R"({"latestVersion": "1", "releaseNotes": ["a", 1]})",
        R"({"latestVersion": "1", "releaseNotes": [null]})",
        R"({"latestVersion": "1", "releaseNotes": [], "minimumSupportedVersion": 1})",
        R"({"latestVersion": "1", "releaseNotes": [], "downloadURL": ["https://example.org"]})",
        R"({"latestVersion": "1", "releaseNotes": [], "downloadURL": "https://exa mple.org"})",
        R"({"latestVersion": "1", "releaseNotes": [], "releaseNotesURL": ""})",
    };
    for (const QByteArray &bytes : refused) {
        CAPTURE(bytes);
        CHECK_FALSE(AppUpdateManifest::fromJson(bytes));
    }
}

TEST_CASE("no more notes are kept than anyone would read")
{
    const QByteArray notes = (R"(")" + QByteArray(5000, 'x') + R"(",)").repeated(5000) + R"("end")";
    const auto manifest = AppUpdateManifest::fromJson(R"({"latestVersion": "1", "releaseNotes": [)" + notes + "]}");
    REQUIRE(manifest);
    CHECK(manifest->releaseNotes.size() == 100);
    CHECK(manifest->releaseNotes.first().size() == 1000);
}

TEST_CASE("of all links only those to a secure page are opened")
{
    for (const char *link : {"https://example.org/download", "HTTPS://EXAMPLE.ORG/x", "https://user@example.org/"}) {
        CAPTURE(link);
        CHECK(isOpenable(QUrl(link, QUrl::StrictMode)));
    }
    const QList<const char *> others = {"http://example.org/",
                                        "file:///etc/passwd",
                                        "javascript:alert(1)",
                                        "ftp://a/b",
                                        "mailto:a@b.example",
                                        "data:text/html,x",
                                        "//example.org/x",
                                        "/x",
                                        "https:",
                                        "https:///x",
                                        "httpss://example.org",
                                        "smb://a/b"};
    for (const char *link : others) {
        CAPTURE(link);
        CHECK_FALSE(isOpenable(QUrl(link, QUrl::StrictMode)));
    }
    CHECK_FALSE(isOpenable(std::nullopt));
}
