// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/PreferenceMirror.h"

#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace ardeno {

// What is written into the capture form; the settings keep it across starts.
class CaptureDrafts final {
public:
    template <typename T>
    using Published = PublishedBy<T, CaptureDrafts>;

    Published<std::optional<QUuid>> draftProjectID;
    Published<QString> draftProjectName;
    Published<QString> draftTitle;
    Published<QString> draftNext;
    Published<bool> includeBrowser;
    Published<bool> pendingRecording; // A work session is to be started.

    explicit CaptureDrafts(Preferences &preferences);

    void setDraftProjectID(const std::optional<QUuid> &id);
    void setDraftProjectName(const QString &name);
    void setDraftTitle(const QString &title);
    void setDraftNext(const QString &next);
    void setIncludeBrowser(bool isOn);
    // Unlike the others, not kept across starts.
    void setPendingRecording(bool isOn);

    // Whether the next start opens the form, and for what.
    bool resumesSetup() const;
    void setResumesSetup(bool isOn);
    void keepRecording(bool isOn);
    // As it is, to be opened by the next start.
    void keepForRestart();

    // What has been typed meanwhile is for the next one.
    void clear(const QString &savedTitle, const QString &savedNext);
    void forgetProject(const QUuid &id);

private:
    void keepDraftProject();

    Preferences &m_preferences;
    std::vector<QPropertyNotifier> m_mirrors;
};

} // namespace ardeno
