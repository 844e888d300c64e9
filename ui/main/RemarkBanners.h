// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Applications.h"
#include "store/SessionFlow.h"

#include <QWidget>

namespace ardeno {

// What is to be known until it is dismissed, a strip each: the newest three at a time.
class RemarkBanners final : public QWidget {
public:
    RemarkBanners(Messages &messages, Applications &applications, SessionFlow &sessions, QWidget *parent = nullptr);

private:
    void showRemarks();

    Messages &m_messages;
    Applications &m_applications;
    SessionFlow &m_sessions;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
