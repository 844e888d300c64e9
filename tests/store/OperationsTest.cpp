// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/SavedFixture.h"

#include <new>
#include <stdexcept>
#include <utility>

using namespace ardeno;

TEST_CASE_FIXTURE(SavedFixture, "whatever ends an operation is said")
{
    memory.whileComposing = [] { throw std::bad_alloc(); };
    CHECK(save("two").captureIssue.has_value());
    memory.whileComposing = [] { throw std::runtime_error("a library's own words"); };
    CHECK(save("two").captureIssue->contains("a library's own words"));
    CHECK_FALSE(store().operations.busy());
    CHECK_FALSE(store().operations.working());
    memory.whileComposing = {};
    CHECK(save("two"));
}

TEST_CASE_FIXTURE(SavedFixture, "what was asked while something else went on is done after it, and waited for")
{
    store().drafts.setDraftProjectID(project);
    blockOn(store().form.captureMoment("Ablation", {}, CaptureKind::Session));
    QCoro::Task<ResumeOutcome> resuming = store().resumes.restore(saved, ResumeSelection::missing, false);
    REQUIRE(store().operations.busy());
    const Outcome stopped = blockOn(store().sessions.stop());
    CHECK(stopped);
    blockOn(std::move(resuming));
    CHECK_FALSE(blockOn(store().sessions.stop()).id.has_value());

    memory.tabRecords["com.google.Chrome"] = u"1\u001f7\u001fhttps://a.example/\u001fOpen\u001e"_qs;
    QCoro::Task<Outcome> adding = store().workspace.addCurrentBrowserTabs(saved.id);
    CHECK_MESSAGE(store().operations.working(), "the end of the program waits for it");
    blockOn(std::move(adding));
    CHECK_FALSE(store().operations.working());
}
