// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"
#include "app/StoreAccess.h"

namespace ardeno {

namespace {

void printField(const QString &label, const QString &text)
{
    if (!text.isEmpty())
        print(u"%1  %2\n"_qs.arg(label, -10).arg(oneLine(text)));
}

QString frameText(const WindowRect &frame)
{
    return u"%1×%2 at %3, %4"_qs.arg(frame.width).arg(frame.height).arg(frame.x).arg(frame.y);
}

void printText(const AppStore &store, const Checkpoint &checkpoint)
{
    const Project *const project = store.project(checkpoint.projectID.value_or(QUuid()));
    print(oneLine(checkpoint.title) + '\n');
    printField("Identifier", uuidText(checkpoint.id));
    printField("Project", project ? project->name : QString());
    printField("Saved", DateText::mediumDateShortTime(checkpoint.createdAt));
    printField("Next step", checkpoint.nextStep);
    printField("Notes", checkpoint.objective);
    printField("Picture", checkpoint.screenshot.value_or(QString()));
    printField("Recording", checkpoint.recording.value_or(QString()));
    printField("Capture", checkpoint.captureNote);
    for (const SavedApp &app : checkpoint.apps)
        printField("App", app.name + " (" + app.id + ')');
    for (const SavedTab &tab : checkpoint.tabs)
        printField("Tab", tab.title + " <" + tab.url + '>');
    for (const SavedWindow &window : checkpoint.windows.value_or(QList<SavedWindow>()))
        printField("Window", window.appName + ": " + window.title + ", " + frameText(window.frame));
}

ExitStatus show(const QCommandLineParser &parsed)
{
    Desktop desktop = libraryOnlyDesktop();
    LockedStore locked(desktop, LockedStore::Purpose::Read);
    if (!locked.store().isLibraryRead())
        return ExitStatus::Failed;
    const Checkpoint checkpoint = findCheckpoint(locked.store(), parsed.positionalArguments().first());
    if (parsed.isSet("json"))
        printJson(checkpoint);
    else
        printText(locked.store(), checkpoint);
    return ExitStatus::Done;
}

} // namespace

ExitStatus runShow(const QCommandLineParser &parsed)
{
    try {
        return show(parsed);
    } catch (const Failure &failure) {
        return report(failure);
    }
}

} // namespace ardeno
