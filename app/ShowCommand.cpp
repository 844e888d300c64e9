// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandStore.h"

namespace ardeno {

namespace {

QString field(const QString &label, const QString &text)
{
    return text.isEmpty() ? QString() : label.leftJustified(10) + "  " + oneLine(text) + '\n';
}

QString frameText(const WindowRect &frame)
{
    return u"%1×%2 at %3, %4"_qs.arg(frame.width).arg(frame.height).arg(frame.x).arg(frame.y);
}

QString text(const AppStore &store, const Checkpoint &checkpoint)
{
    const Project *const project = store.library.project(checkpoint.projectID.value_or(QUuid()));
    QString text = oneLine(checkpoint.title) + '\n';
    text += field("Identifier", uuidText(checkpoint.id));
    text += field("Project", project ? project->name : QString());
    text += field("Saved", DateText::mediumDateShortTime(checkpoint.createdAt));
    text += field("Next step", checkpoint.nextStep);
    text += field("Notes", checkpoint.objective);
    text += field("Picture", checkpoint.screenshot.value_or(QString()));
    text += field("Recording", checkpoint.recording.value_or(QString()));
    text += field("Capture", checkpoint.captureNote);
    for (const SavedApp &app : checkpoint.apps)
        text += field("App", app.name + " (" + app.id + ')');
    for (const SavedTab &tab : checkpoint.tabs)
        text += field("Tab", tab.title + " <" + tab.url + '>');
    for (const SavedWindow &window : checkpoint.windows.value_or(QList<SavedWindow>()))
        text += field("Window", window.appName + ": " + window.title + ", " + frameText(window.frame));
    return text;
}

ExitStatus show(CommandContext &context, const QCommandLineParser &parsed)
{
    Desktop desktop = libraryOnlyDesktop();
    CommandStore access(context, desktop, CommandStore::Purpose::Read);
    if (!access.store().library.isLibraryRead())
        return ExitStatus::Failed;
    const Checkpoint checkpoint = findCheckpoint(access.store(), parsed.positionalArguments().first());
    if (parsed.isSet("json"))
        context.out.printJson(checkpoint);
    else
        context.out.print(text(access.store(), checkpoint));
    return ExitStatus::Done;
}

} // namespace

QCoro::Task<ExitStatus> runShow(CommandContext &context, const QCommandLineParser &parsed)
{
    co_return show(context, parsed);
}

} // namespace ardeno
