// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "store/Outcome.h"
#include "support/Observable.h"
#include "ui/controls/Sheet.h"

#include <QCoreApplication>
#include <QLabel>

#include <functional>

namespace ardeno {

class Applications;
class ExclusionRules;
class OpenSheets;
class SessionRecorder;
class Card;
class RuleList;
class TextField;
class UndoBanner;

// What is left out of every capture: applications and websites.
class ExclusionsView final : public Sheet {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ExclusionsView)

public:
    ExclusionsView(ExclusionRules &rules, const Applications &applications, OpenSheets &sheets,
                   const SessionRecorder &recorder);

private:
    void addApps(QVBoxLayout *column);
    void addWebsites(QVBoxLayout *column);
    Button *makeExcludeMenu();
    void chooseApplication();
    void excludeDomain();
    void allowApp(const QString &id);
    void allowDomain(const QString &domain);
    void offerUndo(const QString &name, std::function<Outcome()> exclude);
    void undo();
    void showExclusions();
    void showObstacles();

    ExclusionRules &m_rules;
    const Applications &m_applications;
    OpenSheets &m_sheets;
    const SessionRecorder &m_recorder;
    QList<SavedApp> m_runningApps; // When the view was opened.
    QWidget *m_recordingNote;
    QLabel *m_issueText;
    QWidget *m_issueNote;
    Button *m_startOver = nullptr;
    QWidget *m_controls;
    UndoBanner *m_undo;
    std::function<Outcome()> m_excludeAgain;
    RuleList *m_apps;
    Card *m_appsCard;
    QWidget *m_noApps;
    TextField *m_domain;
    QLabel *m_validation;
    RuleList *m_domains;
    Card *m_domainsCard;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
