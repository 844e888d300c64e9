// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/FadeIn.h"

#include "tests/ui/WindowFixture.h"

#include <QScopeGuard>
#include <QVariantAnimation>

using namespace ardeno;

TEST_CASE_FIXTURE(WindowFixture,
                  "what comes fades in under the click that it waits for, and at once with reduced motion")
{
    openProject();
    FadeIn::setDuration(std::chrono::seconds(1)); // Longer than anything between two lines here takes.
    const auto still = qScopeGuard([] {
        FadeIn::setDuration({});
        AppTheme::instance().setAppearance({});
    });
    const auto isFading = [this] { return window->findChild<QVariantAnimation *>() != nullptr; };
    store().sheets.open(&OpenSheets::showNewProject);
    settle();
    CHECK(isFading());
    click("Cancel");
    CHECK_FALSE(window->sheets().isCovering());
    CHECK(eventually([&] { return !isFading(); }));
    store().messages.confirm("Something was done."); // In a strip.
    settle();
    CHECK(isFading());
    CHECK(eventually([&] { return !isFading(); }));

    AppTheme::instance().setAppearance({.motion = Motion::Reduced});
    store().sheets.open(&OpenSheets::showNewProject);
    settle();
    CHECK_FALSE(isFading());
    click("Cancel");
    CHECK_FALSE(isFading());
}
