// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"

#include <QLabel>
#include <QTest>

#include <algorithm>

using namespace ardeno;

namespace {

struct RemarksFixture : WindowFixture {
    // A part of what is written somewhere.
    bool sees(const QString &part) const
    {
        const QList<QLabel *> labels = window->findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel *label) { return label->isVisible() && label->text().contains(part); });
    }
};

} // namespace

TEST_CASE_FIXTURE(RemarksFixture,
                  "what is to be known stays in strips until it is dismissed, also by the keyboard alone")
{
    writeFile(libraryPath(), "{");
    openWindow();
    CHECK(eventually([this] { return sees("have been left in place"); }));
    press(Qt::Key_Return);
    openProject();
    REQUIRE(store().messages.remarks().size() == 1);
    const QString copy = store().messages.remarks().first().file.value();
    CHECK(sees("a new library has been begun"));
    store().messages.confirm("Checkpoint saved.");
    window->resize(960, 690);
    pictures("remark");

    click("Show file");
    CHECK(eventually([&] { return memory.opened == QStringList{"reveal " + copy}; }));
    store().editing.updateNote(&Checkpoint::title, "typed meanwhile", QUuid());
    CHECK(sees("a new library has been begun"));
    restart();
    CHECK_MESSAGE(sees("a new library has been begun"), "nobody has dismissed it");

    for (int i = 0; i < 5; ++i)
        store().messages.remark({.sentence = QString("Remark %1 of five.").arg(i)});
    settle();
    CHECK(sees("Remark 4 of five."));
    CHECK_MESSAGE(!sees("Remark 1 of five."), "the window keeps its room");
    pictures("remarks");
    button("Dismiss the remark")->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 6; ++i) {
        CHECK(store().messages.remarks().size() == 6 - i);
        press(Qt::Key_Space);
        settle();
    }
    CHECK(store().messages.remarks().isEmpty());
    CHECK(window->isAncestorOf(window->focusWidget()));
    restart();
    CHECK_FALSE(sees("a new library has been begun"));
}

TEST_CASE_FIXTURE(RemarksFixture, "a recording that broke off is seen, also when the message has been dismissed")
{
    const QUuid project = openProject();
    store().drafts.setDraftProjectID(project);
    store().form.captureMoment("Ablation", {}, CaptureKind::Session);
    REQUIRE(eventually([this] { return store().recorder.recording(); }));
    memory.recordingEvents.failed(Failure::system(ENOSPC));
    REQUIRE(eventually([this] { return sees("Recording stopped unexpectedly: No space left on device."); }));
    press(Qt::Key_Return);
    CHECK_FALSE(sees("Recording stopped unexpectedly"));
    CHECK(sees("Recording broken off"));
    pictures("recording-broken");
    breakLibrary();
    click("Stop & save checkpoint");
    REQUIRE(eventually([this] { return !store().recorder.recording() && store().messages.error().has_value(); }));
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    CHECK_FALSE(store().messages.error());
    CHECK(sees(u"Your work session “Ablation” is kept in"_qs));
    mendLibrary();
    click("Save now");
    CHECK(sees(u"Your work session “Ablation” has been saved now."_qs));
    CHECK(store().library.checkpoints().size() == 1);
}
