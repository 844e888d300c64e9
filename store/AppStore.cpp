// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"

#include <utility>

namespace ardeno {

AppStore::AppStore(Desktop &desktop, StoreParts parts)
    : m_preferences(std::move(parts.preferences)),
      m_keptCopies(messages, m_preferences),
      m_unsavedSessions(parts.repository.root()),
      library(std::move(parts.repository), std::move(parts.beforeWrite), messages, m_unsavedSessions,
              {.published = [this] { navigation.leaveMissingProject(); }, .replaced = [this] { libraryReplaced(); }}),
      media(library, std::move(parts.thumbnailFolder)),
      navigation(library, messages, m_preferences),
      operations(messages, library, navigation),
      m_capture(*desktop.screenCapture, desktop.screenRecorder.get()),
      recorder(desktop, m_capture, library, messages),
      rules(operations, messages, m_preferences, desktop, recorder),
      applications(operations, desktop, rules, std::move(parts.runningApplicationIDs)),
      m_collector(desktop, m_capture, rules, library),
      removals(operations, messages, library, media),
      editing(operations, library, navigation, m_preferences),
      screenshots(operations, library, media, removals),
      workspace(operations, library, removals, rules, m_collector),
      drafts(m_preferences),
      sheets(drafts.resumesSetup()),
      projects(operations, library, navigation, drafts),
      deletion({.operations = operations,
                .library = library,
                .navigation = navigation,
                .media = media,
                .removals = removals,
                .recorder = recorder,
                .forget = [this](const QUuid &id) { forgetProject(id); }}),
      capture({.operations = operations,
               .library = library,
               .navigation = navigation,
               .rules = rules,
               .collector = m_collector,
               .recorder = recorder}),
      screenAccess({.desktop = desktop,
                    .capture = m_capture,
                    .messages = messages,
                    .preferences = m_preferences,
                    .drafts = drafts,
                    .sheets = sheets,
                    .operations = operations,
                    .recorder = recorder},
                   {.check = std::move(parts.checkScreenAccess),
                    .ask = std::move(parts.askScreenAccess),
                    .verify = std::move(parts.verifyScreenAccess),
                    .startInstance = std::move(parts.startInstance),
                    .endApplication = std::move(parts.endApplication)}),
      setup(library, navigation, messages, drafts, sheets, screenAccess),
      newsletter(m_preferences),
      form({.operations = operations,
            .library = library,
            .projects = projects,
            .capture = capture,
            .drafts = drafts,
            .sheets = sheets,
            .screenAccess = screenAccess,
            .newsletter = newsletter}),
      m_sessionEnd(desktop, library, rules, m_collector),
      sessions({.operations = operations,
                .messages = messages,
                .library = library,
                .unsaved = m_unsavedSessions,
                .recorder = recorder,
                .end = m_sessionEnd,
                .drafts = drafts,
                .show = [this](const Checkpoint &saved) { showSession(saved); }}),
      resumes(operations, desktop, library, rules, std::move(parts.openedPages)),
      updates(m_preferences, std::move(parts.fetchUpdate)),
      shortcut(m_preferences)
{
    start(parts);
}

AppStore::~AppStore()
{
    removals.settleLast();
    applications.stopWatching();
}

void AppStore::start(const StoreParts &parts)
{
    if (!m_preferences.unreadableNote().isEmpty())
        messages.report(m_preferences.unreadableNote());
    rules.start();
    m_keptCopies.watch();
    if (parts.remindOfCopies)
        m_keptCopies.remind();
    library.read(parts.loadLibrary);
    const bool isOwner = library.isLibraryRead() && parts.recoverSessions;
    if (isOwner)
        sessions.recoverSessions(library.resolveMedia());
    if (parts.seedStarterExample)
        library.prepareSamples();
    navigation.chooseFirst(parts.seedStarterExample);
    if (isOwner)
        editing.start();
}

void AppStore::libraryReplaced()
{
    navigation.leaveMissingCheckpoint();
    removals.look();
}

void AppStore::forgetProject(const QUuid &id)
{
    drafts.forgetProject(id);
    sheets.forgetProject(id);
    projects.forgetProject(id);
}

void AppStore::showSession(const Checkpoint &saved)
{
    navigation.show(saved);
    newsletter.consider();
}

} // namespace ardeno
