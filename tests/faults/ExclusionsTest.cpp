// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/faults/Faults.h"
#include "tests/store/StoreFixture.h"
#include "tests/support/Children.h"
#include "json/Json.h"

#include <cerrno>

using namespace ardeno;
using faults::Plan;

namespace {

struct ExclusionFaults : StoreFixture {
    const QString folder = home.filePath("settings");
    const QString file = folder + "/exclusions.json";
    const CaptureExclusions rules{{{"org.secret", "Secret"}}, {"bank.test"}};

    CaptureExclusions stored() const { return json::decode<CaptureExclusions>(fileBytes(file)); }

    void writeRules()
    {
        QDir(folder).removeRecursively();
        REQUIRE(QDir().mkpath(folder));
        writeFile(file, json::encode(rules));
        writeFile(folder + "/settings.json", R"({"includeBrowser": true})");
    }

    // The exit status of a child that adds a rule and saves: 1 the rule was refused, 2 the secret would be seen.
    int runInChild(const Plan &plan, int *calls)
    {
        Child child([&](const Child::Signal &ready) {
            constexpr unsigned longest = 60; // Seconds.
            ::alarm(longest);
            ready();
            faults::begin(plan);
            AppStore &own = reopen();
            const bool isAdded = own.rules.excludeDomain("new.test").isDone;
            const auto prepared = memory.preparedExclusions.size();
            const Outcome saved =
                blockOn(own.capture.saveMoment({.projectID = *own.projects.createProject("Project")}));
            const bool isHidden = !saved || memory.preparedExclusions.value(prepared).contains("org.secret");
            writeFile(home.filePath("calls"), QByteArray::number(faults::calls()));
            ::_exit(!isHidden ? 2 : isAdded ? 0 : 1);
        });
        const int status = child.wait();
        *calls = fileBytes(home.filePath("calls")).toInt();
        return status;
    }
};

} // namespace

TEST_CASE_FIXTURE(ExclusionFaults, "whichever call of the system fails or is the last, no rule is lost or passed over")
{
    Plan plan{.folder = QFile::encodeName(folder)};
    int all = 0;
    writeRules();
    REQUIRE(runInChild(plan, &all) == 0);
    REQUIRE(all > 10);
    CHECK(stored().domains == QStringList{"bank.test", "new.test"});
    for (const auto kind : {Plan::Kind::Error, Plan::Kind::LastingError, Plan::Kind::Kill}) {
        plan.kind = kind;
        plan.error = EIO;
        for (plan.call = 1; plan.call <= all; ++plan.call) {
            CAPTURE(plan.call);
            CAPTURE(static_cast<int>(kind));
            writeRules();
            int calls = 0;
            const int status = runInChild(plan, &calls);
            CHECK(status != 2);
            const CaptureExclusions after = stored();
            CHECK(after.apps == rules.apps);
            CHECK(after.domains.contains("bank.test"));
            if (status >= 0)
                CHECK(after.domains.contains("new.test") == (status == 0));
        }
    }
}
