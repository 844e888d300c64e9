// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/CutTexts.h"
#include "tests/ui/DrawnTexts.h"
#include "tests/ui/WindowFixture.h"
#include "ui/ViewParts.h"
#include "ui/quicksave/QuickSavePanel.h"
#include "ui/viewer/ScreenshotViewer.h"
#include "words/Words.h"

#include <QApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>

#include <unicode/locid.h>

using namespace ardeno;

namespace {

// The program as someone sees it whose desktop is German.
struct GermanFixture : WindowFixture {
    Words words = Words(QStringList{"de"});

    GermanFixture()
    {
        setLanguage(QLocale(QLocale::German, QLocale::Germany), icu::Locale::getGermany());
        hasSettings = true;
        hasSheets = true;
    }

    ~GermanFixture() override
    {
        window.reset();
        setLanguage(QLocale(QLocale::English, QLocale::UnitedStates), icu::Locale::getUS());
    }

    static void setLanguage(const QLocale &locale, const icu::Locale &dates)
    {
        QLocale::setDefault(locale);
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(dates, status);
    }

    void look(const QString &name)
    {
        settle();
        picture("german-" + name);
        CAPTURE(name);
        CHECK(window->size() == QSize(960, 690));
        CHECK(textsThatAreCut(window.get()) == QStringList());
        const QStringList drawn = drawnTexts(*window);
        CHECK(drawn.size() > 5);
        // A sentence that ends in "…" has a space before it here; what was shortened has none.
        CHECK(drawn.filter(QRegularExpression(u"(^|\\S)…$"_qs)) == QStringList());
    }
};

} // namespace

TEST_CASE_FIXTURE(GermanFixture, "the whole program speaks another language, and nothing is cut off in its long words")
{
    openWindow();
    window->resize(960, 690);
    look("empty");
    const QUuid thesis = *store().projects.createProject("Abschlussarbeit");
    look("project");
    store().projects.setProjectBlocker(*store().projects.createProject("Website"), "das Angebot");
    saveCheckpoint(thesis, u"Checkpoint · 20:36"_qs, Date::now().seconds - 86'400);
    Checkpoint latest = saveCheckpoint(thesis, u"Checkpoint · 22:48"_qs, Date::now().seconds - 60);
    latest.apps = {{"a", "A"}};
    latest.tabs = {{.title = "Eine Seite", .url = "https://example.org"}};
    QImage screen(1920, 1080, QImage::Format_RGB32);
    screen.fill(Qt::darkCyan);
    REQUIRE(screen.save(*latest.screenshot));
    REQUIRE(store().editing.save(latest));
    CHECK(store().messages.notice() != QString("Checkpoint saved."));
    store().navigation.selectCheckpoint(latest.id);
    settle();
    CHECK(seesText(u"1 App · 1 Seite · Sie wählen, was geöffnet wird"_qs));
    look("detail");
    store().navigation.selectCheckpoint(
        store().library.checkpointsFor(thesis).last().id); // With the way back to the newest one.
    look("older");
    store().projects.setProjectBlocker(thesis, QString());
    look("blocked");
    CHECK(seesText("Noch ohne Grund."));
    store().projects.setProjectBlocker(thesis, std::nullopt);
    store().navigation.selectCheckpoint(latest.id);
    settle();
    auto *const page = window->findChild<QScrollArea *>();
    page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    look("notes");
    click("Checkpoints verwalten");
    look("manager");
    click("Fertig");
    click(u"Checkpoint-Details …"_qs);
    look("edit");
    click("Abbrechen");
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    look("capture");
    memory.screenAccess = false;
    store().screenAccess.refreshScreenAccess();
    look("access");
    memory.screenAccess = true;
    press(Qt::Key_Escape);
    store().sheets.open(&OpenSheets::showRestore);
    settle();
    REQUIRE(eventually([this] { return findButton("Abbrechen") != nullptr; }));
    look("restore");
    press(Qt::Key_Escape);
    click("Alle Projekte");
    look("overview");
    click("Neues Projekt");
    look("new-project");
    click("Abbrechen");
}

TEST_CASE_FIXTURE(GermanFixture, "settings, exclusions and the viewer fit in another language, too")
{
    openWindow();
    window->resize(960, 690);
    click("Einstellungen");
    CHECK(findButton("Kurzbefehl zum Sichern: Strg+Alt+Super+S (Standard)"));
    store().shortcut.setShortcutIssue("Problem");
    look("preferences");
    for (QScrollArea *const page : window->sheets().topSheet()->findChildren<QScrollArea *>())
        page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    look("preferences-end");
    click(u"Ausnahmen …"_qs);
    store().rules.excludeApp({"org.editor", "Texteditor"});
    store().rules.excludeDomain("beispiel.example");
    look("exclusions");
    click(u"App wählen …"_qs);
    look("applications");
    press(Qt::Key_Escape);
    click("Fertig");
    click("Fehler melden");
    look("bug-report");
    press(Qt::Key_Escape);

    QImage screen(1920, 1080, QImage::Format_RGB32);
    screen.fill(Qt::darkCyan);
    REQUIRE(screen.save(home.filePath("screen.png")));
    for (const QString &path : {home.filePath("screen.png"), home.filePath("missing.png")}) {
        ScreenshotViewer viewer(path);
        viewer.setAttribute(Qt::WA_DeleteOnClose, false);
        viewer.resize(viewer.minimumSize());
        viewer.show();
        settle();
        CHECK(textsThatAreCut(&viewer) == QStringList());
    }

    QuickSavePanel panel(ViewParts::ofCapture(store()));
    panel.present([] {});
    settle();
    CHECK(textsThatAreCut(&panel) == QStringList());
    CHECK(panel.grab().save(QString(ARDENO_PICTURES) + "/german-quick-save.png"));
}
