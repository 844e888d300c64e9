// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"
#include "ui/Screens.h"
#include "ui/theme/AppTheme.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace ardeno {

class LineLabel;
class Sheet;

// How every strip is drawn and laid out.
void drawStrip(QWidget *strip, Role ground, Qt::Edge edge);
QHBoxLayout *makeStripRow(QWidget *strip);

// Offers a newer version above the detail; hidden while there is none.
class UpdateBanner final : public QWidget {
public:
    UpdateBanner(AppStore &store, const Screens &screens, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showUpdate();

    AppStore &m_store;
    LineLabel *m_text;
    Observations m_observations;
};

// What a newer version brings.
Sheet *makeUpdateDetailsSheet(AppStore &store, const Screens &screens, const AppUpdateManifest &update);

// What was done, at the bottom of the detail, until it is dismissed.
class NoticeStrip final : public QWidget {
public:
    explicit NoticeStrip(AppStore &store, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showNotice();

    AppStore &m_store;
    QLabel *m_text;
    Observations m_observations;
};

// Asks once whether the user wants to hear of news.
class NewsletterPrompt final : public QWidget {
public:
    NewsletterPrompt(AppStore &store, const Screens &screens, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    AppStore &m_store;
    Observations m_observations;
};

} // namespace ardeno
