// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Screens.h"
#include "ui/projects/ProjectParts.h"

#include <QWidget>

class QLabel;

namespace ardeno {

class Button;
class ProjectListView;
class SearchField;

// The left side of the main window: search, the projects, and what is always at hand.
class Sidebar final : public QWidget {
public:
    static constexpr int fixedWidth = 244;

    Sidebar(const ProjectParts &parts, const Screens &screens, QWidget *parent = nullptr);

    void focusSearch();

    // The mark and the name, which are there before all else.
    static QWidget *makeBrand();

private:
    SearchField *makeSearch();
    QWidget *makeSectionHeader();
    QWidget *makeExplanation();
    QWidget *makeSettings();
    void openFirst();
    void showSection();

    ProjectParts m_parts;
    SearchField *m_search;
    Button *m_all;
    QLabel *m_section;
    QLabel *m_count;
    QLabel *m_nothing;
    ProjectListView *m_projects;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
