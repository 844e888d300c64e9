// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Newsletter.h"
#include "store/ResumeFlow.h"
#include "store/Updates.h"
#include "ui/Screens.h"
#include "ui/theme/AppTheme.h"

#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

class QHBoxLayout;
class QLabel;

namespace ardeno {

class Button;
class LineLabel;
class Sheet;

// How every strip is drawn and laid out.
void drawBanner(QWidget *strip, Role background, Qt::Edge edge);
QHBoxLayout *makeStripRow(QWidget *strip);

// Offers a newer version above the detail; hidden while there is none.
class UpdateBanner final : public QWidget {
public:
    UpdateBanner(Updates &updates, const Screens &screens, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showUpdate();

    Updates &m_updates;
    LineLabel *m_text;
    Subscriptions m_subscriptions;
};

// What a newer version brings.
Sheet *makeUpdateDetailsSheet(const Screens &screens, const AppUpdateManifest &update);

// What was done, at the bottom of the detail, until it is dismissed or has been there for a while. It stays while
// somebody points at it or cannot see it.
class NoticeBanner final : public QWidget {
public:
    // Shows what the last resume could not do.
    NoticeBanner(Messages &messages, const Navigation &navigation, const Library &library, const ResumeFlow &resumes,
                 std::function<void()> showShortfall, QWidget *parent = nullptr);

    void setPatience(std::chrono::milliseconds patience);

protected:
    void paintEvent(QPaintEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void showNotice();
    void expire();
    bool isHeld() const;

    Messages &m_messages;
    const Navigation &m_navigation;
    const Library &m_library;
    const ResumeFlow &m_resumes;
    QLabel *m_text;
    Button *m_show;
    QTimer m_expiry{this};
    Subscriptions m_subscriptions;
};

// Asks once whether the user wants to hear of news.
class NewsletterPrompt final : public QWidget {
public:
    NewsletterPrompt(Newsletter &newsletter, const Screens &screens, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Newsletter &m_newsletter;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
