// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/BugReportComposer.h"
#include "tests/Printing.h"

#include <QUrlQuery>

using namespace ardeno;

TEST_CASE("a report holds what was written, in its form, and nothing else of the machine")
{
    const BugReportDraft draft{.title = " Stuck ", .details = "\n\nSaving stays\nat 90%.\n", .steps = "  \n"};
    CHECK(BugReportComposer::body(draft, {}, "System 1 (2)") ==
          "What happened:\nSaving stays\nat 90%.\n\nSteps to reproduce:\nNot provided\n\nDiagnostics:\n"
          "App version: Development (Development)\nmacOS: System 1 (2)");
    BugReportDraft withSteps = draft;
    withSteps.steps = "\n1. Save\n\n2. Wait\n";
    CHECK(BugReportComposer::body(withSteps, {.version = "1.2", .build = "34"}, "S") ==
          "What happened:\nSaving stays\nat 90%.\n\nSteps to reproduce:\n1. Save\n\n2. Wait\n\nDiagnostics:\n"
          "App version: 1.2 (34)\nmacOS: S");
}

TEST_CASE("without a summary or details nothing is opened or copied")
{
    const QList<BugReportDraft> drafts = {{}, {.title = "  ", .details = "x"}, {.title = "x", .details = "\n \n"}};
    for (const BugReportDraft &draft : drafts) {
        CHECK_FALSE(draft.canSubmit());
        int calls = 0;
        CHECK_FALSE(BugReportComposer::openMail(draft, [&](const QUrl &) { return ++calls > 0; }));
        CHECK_FALSE(BugReportComposer::copy(draft, [&](const QString &) { return ++calls > 0; }));
        CHECK(calls == 0);
    }
}

TEST_CASE("every character of a report survives the mail's address")
{
    const BugReportDraft draft{.title = u"100% & more + ünïcode? #1"_qs, .details = "a=b&c;d+e\n\"<>\"\t%41"};
    QUrl opened;
    CHECK(BugReportComposer::openMail(draft, [&](const QUrl &address) {
        opened = address;
        return true;
    }));
    CHECK(opened.scheme() == "mailto");
    CHECK(opened.path() == Endpoints::supportAddress());
    const QUrlQuery query(opened);
    CHECK(query.queryItems().size() == 2);
    CHECK(query.queryItemValue("subject", QUrl::FullyDecoded) == "Ardeno bug: " + draft.title);
    CHECK(query.queryItemValue("body", QUrl::FullyDecoded).startsWith("What happened:\n" + draft.details + "\n\n"));
    const QByteArray encoded = opened.toEncoded();
    for (const char raw : {' ', '\n', '+', '"', '<'})
        CHECK_FALSE(encoded.contains(raw));

    QString copied;
    CHECK_FALSE(BugReportComposer::copy(draft, [&](const QString &text) {
        copied = text;
        return false; // Nothing is claimed that did not happen.
    }));
    CHECK(copied.startsWith("Subject: Ardeno bug: " + draft.title + "\n\nWhat happened:\n" + draft.details));
}

TEST_CASE("questions have a subject")
{
    CHECK(BugReportComposer::contactURL().toEncoded() ==
          "mailto:" + Endpoints::supportAddress().toUtf8() + "?subject=Ardeno%20support");
}
