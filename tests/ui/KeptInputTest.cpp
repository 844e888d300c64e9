// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"
#include "tests/ui/WindowFixture.h"
#include "ui/checkpoint/QuickListEditor.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <utility>

using namespace ardeno;

namespace {

struct KeptInput : WindowFixture {
    KeptInput() { hasSettings = true; }

    void typeNote(const QString &text)
    {
        QTest::mouseClick(note()->viewport(), Qt::LeftButton);
        type(text);
    }

    QString topTitle() const
    {
        return window->sheets().isCovering() ? window->sheets().topSheet()->accessibleName() : QString();
    }

    void fill(const QString &name, const QString &text)
    {
        field(name)->setFocus();
        type(text);
    }

    QStringList viewers() const
    {
        QStringList titles;
        for (const QWidget *const top : QApplication::topLevelWidgets()) {
            if (top->isVisible() && top->windowTitle() == "Checkpoint screenshot")
                titles << top->windowTitle();
        }
        return titles;
    }
};

const QString discard = "Discard what you typed?";

} // namespace

TEST_CASE_FIXTURE(KeptInput, "who leaves a note that could not be written is asked, and finds it as it was typed")
{
    openProject();
    const auto [older, newer] = saveTwoCheckpoints();
    breakLibrary();
    typeNote("precious");
    press(Qt::Key_PageDown, Qt::ControlModifier);
    REQUIRE(store().navigation.selection() == older.id);
    store().messages.dismissError();
    settle();
    CHECK(topTitle() == "A note is not saved yet");
    CHECK(note()->text().isEmpty());
    picture("note-left");
    click("Leave it");
    CHECK_FALSE(window->sheets().isCovering());
    press(Qt::Key_PageUp, Qt::ControlModifier);
    CHECK(note()->text() == u"• precious"_qs);
    CHECK(seesText(u"Not saved yet · Saving is tried again"_qs));
    pictures("note-unsaved");
    click("All projects");
    REQUIRE(topTitle() == "A note is not saved yet");
    click("Back to the note");
    CHECK(store().navigation.selection() == newer.id);
    CHECK(note()->text() == u"• precious"_qs);
    CHECK(window->hasUnsavedNotes());
    settle();

    mendLibrary();
    CHECK_FALSE(window->hasUnsavedNotes());
    settle();
    CHECK(store().library.checkpoint(newer.id)->objective == u"• precious"_qs);
    CHECK_FALSE(seesText(u"Not saved yet · Saving is tried again"_qs));
    press(Qt::Key_PageDown, Qt::ControlModifier);
    CHECK_FALSE(window->sheets().isCovering());
}

TEST_CASE_FIXTURE(KeptInput, "Escape throws what was typed away only after a question, and asks nothing without need")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    const std::pair<QString, std::function<void()>> sheets[] = {
        {"Checkpoint title", [&] { click(u"Checkpoint details…"_qs); }},
        {"Your next small step", [&] { click(u"Checkpoint details…"_qs); }},
        {"Steps to reproduce (optional)",
         [&] {
             store().sheets.open(&OpenSheets::showSettings);
             settle();
             click("Report a bug");
         }},
        {"Website",
         [&] {
             store().sheets.open(&OpenSheets::showSettings);
             store().sheets.open(&OpenSheets::showExclusions);
         }},
        {"Project name", [&] { store().sheets.open(&OpenSheets::showNewProject); }},
        {"Project name",
         [&] {
             list("Projects")->setFocus();
             press(Qt::Key_F2);
         }},
        {u"Waiting for…"_qs, [&] { store().sheets.editBlocker(store().library.projects().first()); }},
    };
    for (const auto &[field, open] : sheets) {
        CAPTURE(field);
        open();
        settle();
        const QString title = topTitle();
        press(Qt::Key_Escape);
        CHECK_MESSAGE(topTitle() != title, "nothing was typed");
        store().sheets.close(&OpenSheets::showExclusions);
        store().sheets.close(&OpenSheets::showSettings);
        settle();

        open();
        settle();
        fill(field, "typed");
        CHECK(window->sheets().holdsInput());
        press(Qt::Key_Escape);
        REQUIRE(topTitle() == discard);
        press(Qt::Key_Return);
        CHECK(topTitle() == title);
        press(Qt::Key_Escape);
        click("Discard");
        CHECK(topTitle() != title);
        CHECK_FALSE(window->sheets().holdsInput());
        store().sheets.close(&OpenSheets::showExclusions);
        store().sheets.close(&OpenSheets::showSettings);
        settle();
    }
    CHECK(store().library.checkpoints().first().title == "Chapter");
}

TEST_CASE_FIXTURE(KeptInput, "details of a checkpoint that was deleted meanwhile stay to be copied")
{
    const Checkpoint checkpoint = saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    click(u"Checkpoint details…"_qs);
    fill("Checkpoint title", "A long title");
    REQUIRE(store().deletion.deleteCheckpoint(checkpoint.id));
    settle();
    click("Save context");
    CHECK(seesText("This checkpoint is no longer in the library, so nothing could be saved."));
    click("OK");
    CHECK(topTitle() == "Checkpoint details");
    CHECK(window->sheets().holdsInput());
}

TEST_CASE_FIXTURE(KeptInput, "a picture that was removed comes back by one button, and its viewer goes with it")
{
    const Checkpoint checkpoint = saveCheckpoint(openProject(), "Chapter", 10);
    writeFile(*checkpoint.screenshot, PngWriter::encoded({40, 30}, QByteArray(40 * 30 * 4, '\x40')));
    settle();
    click("Expand");
    REQUIRE(viewers().size() == 1);
    click("Remove");
    CHECK(viewers().isEmpty());
    CHECK(seesText("No screenshot saved"));
    CHECK(seesText("Screenshot removed"));
    pictures("screenshot-removed");
    click("Undo");
    CHECK(store().library.checkpoint(checkpoint.id)->screenshot == checkpoint.screenshot);
    CHECK_FALSE(seesText("No screenshot saved"));
    CHECK_FALSE(findButton("Undo"));

    click("Expand");
    store().editing.updateNote(&Checkpoint::objective, "typed", checkpoint.id);
    settle();
    CHECK(viewers().size() == 1);
    store().deletion.deleteCheckpoint(checkpoint.id);
    settle();
    CHECK(viewers().isEmpty());
}

TEST_CASE_FIXTURE(KeptInput, "what stands in a form when the program is ended is there again at the next start")
{
    const Checkpoint checkpoint = saveCheckpoint(openProject(), "Chapter", 10);
    REQUIRE(store().editing.updateNote(&Checkpoint::nextStep, "as stored", checkpoint.id));
    settle();
    click(u"Checkpoint details…"_qs);
    window->sheets().keepInput(); // Nothing was typed.
    CHECK(store().keptForms.details().isEmpty());
    fill("Checkpoint title", "A better title");
    fill("Where you left off", "two lines");
    window->sheets().keepInput();
    restart();
    REQUIRE(topTitle() == "Checkpoint details");
    CHECK(seesText("Ardeno was ended before this was saved. Save it now, or cancel to discard it."));
    pictures("details-kept");
    CHECK(store().library.checkpoint(checkpoint.id)->title == "Chapter"); // Nothing is written without its user.
    press(Qt::Key_Escape);
    CHECK(topTitle() == discard);
    click("Keep editing");
    click("Save context");
    CHECK(store().library.checkpoint(checkpoint.id)->title == "ChapterA better title");
    CHECK(store().library.checkpoint(checkpoint.id)->objective == "two lines");
    CHECK(store().library.checkpoint(checkpoint.id)->nextStep == "as stored");
    restart();
    CHECK_FALSE(window->sheets().isCovering());

    store().sheets.open(&OpenSheets::showSettings);
    settle();
    click("Report a bug");
    fill("Steps to reproduce (optional)", "press it");
    window->sheets().keepInput();
    restart();
    REQUIRE(topTitle() == "Report a bug");
    CHECK(window->sheets().holdsInput());
    press(Qt::Key_Escape);
    click("Discard");
    restart();
    CHECK_FALSE(window->sheets().isCovering());

    // Of a checkpoint that was deleted meanwhile the text can still be copied.
    click(u"Checkpoint details…"_qs);
    fill("Where you left off", "precious");
    window->sheets().keepInput();
    store().deletion.deleteCheckpoint(checkpoint.id);
    restart();
    REQUIRE(topTitle() == "Checkpoint details");
    CHECK(window->sheets().holdsInput());
}
