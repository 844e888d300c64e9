// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/FileDialogs.h"

#include <QObject>
#include <QVariantMap>

class QDBusPendingCallWatcher;

namespace ardeno {

// One question to the portal.
class PortalFileQuestion final : public QObject, public FileDialogs::Asking {
    Q_OBJECT

public:
    explicit PortalFileQuestion(FileDialogs::Answered answered) : m_answered(std::move(answered)) {}

    void ask(const FileDialogs::Question &question);

private Q_SLOTS:
    void choiceMade(uint code, const QVariantMap &results);

private:
    void portalHasCall(QDBusPendingCallWatcher *call);
    void answer(FileDialogs::Answer answer, const QString &path = {});

    FileDialogs::Answered m_answered; // Empty once it was called.
};

// The dialogs of the desktop's portal, over the session bus.
class PortalFileDialogs final : public FileDialogs {
public:
    std::unique_ptr<Asking> ask(const Question &question, Answered answered) override;
};

} // namespace ardeno
