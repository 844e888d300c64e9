// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Observable.h"
#include "ui/controls/Sheet.h"
#include "ui/settings/PreferenceParts.h"

#include <QCoreApplication>
#include <QLabel>

namespace ardeno {

class DropDown;
class Progress;
class SettingsCard;
class Switch;

// What the user sets for the whole program.
class PreferencesView final : public Sheet {
    Q_DECLARE_TR_FUNCTIONS(ardeno::PreferencesView)

public:
    explicit PreferencesView(const PreferenceParts &parts);

private:
    QWidget *makeBehaviour();
    DropDown *makeLaunch();
    DropDown *makeShortcut();
    Switch *makeBrowserTabs();
    QWidget *makePrivacy();
    QWidget *makeContact();
    void addUpdates(SettingsCard *card);
    Button *makeButton(const QString &text, const QString &symbol, std::function<void()> pressed);
    void showUpdate();
    void showShortcutIssue();
    void showSavedFiles();
    void emailSupport();
    void tell(const QString &sentence);

    PreferenceParts m_parts;
    QLabel *m_shortcutIssue;
    QLabel *m_updateText = nullptr;
    QWidget *m_updateSymbol = nullptr;
    Progress *m_checking = nullptr;
    Button *m_check = nullptr;
    Button *m_download = nullptr;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
