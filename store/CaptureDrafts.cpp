// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/CaptureDrafts.h"

#include "model/WorkspaceRecords.h"
#include "store/PreferenceKeys.h"

namespace ardeno {

namespace {

std::optional<QUuid> toUuid(const std::optional<QString> &text)
{
    const QUuid id(text.value_or(QString()));
    return id.isNull() ? std::nullopt : std::optional(id);
}

} // namespace

CaptureDrafts::CaptureDrafts(Preferences &preferences)
    : draftProjectID(toUuid(preferences.value(keys::draftProjectID))),
      draftProjectName(preferences.value(keys::draftProjectName).value_or(QString())),
      draftTitle(preferences.value(keys::captureDraftTitle).value_or(QString())),
      draftNext(preferences.value(keys::captureDraftNext).value_or(QString())),
      includeBrowser(preferences.value(keys::includeBrowser).value_or(false)),
      pendingRecording(preferences.value(keys::captureDraftRecording).value_or(false)),
      m_preferences(preferences)
{
    m_mirrors.push_back(draftProjectID.addNotifier([this] { keepDraftProject(); }));
    m_mirrors.push_back(mirror(draftProjectName, preferences, keys::draftProjectName));
    m_mirrors.push_back(mirror(draftTitle, preferences, keys::captureDraftTitle));
    m_mirrors.push_back(mirror(draftNext, preferences, keys::captureDraftNext));
    m_mirrors.push_back(mirror(includeBrowser, preferences, keys::includeBrowser));
}

void CaptureDrafts::keepDraftProject()
{
    if (draftProjectID())
        m_preferences.setValue(keys::draftProjectID, uuidText(*draftProjectID()));
    else
        m_preferences.remove(keys::draftProjectID);
}

void CaptureDrafts::setDraftProjectID(const std::optional<QUuid> &id)
{
    draftProjectID.set(id);
}

void CaptureDrafts::setDraftProjectName(const QString &name)
{
    draftProjectName.set(name);
}

void CaptureDrafts::setDraftTitle(const QString &title)
{
    draftTitle.set(title);
}

void CaptureDrafts::setDraftNext(const QString &next)
{
    draftNext.set(next);
}

void CaptureDrafts::setIncludeBrowser(bool isOn)
{
    includeBrowser.set(isOn);
}

void CaptureDrafts::setPendingRecording(bool isOn)
{
    pendingRecording.set(isOn);
}

bool CaptureDrafts::resumesSetup() const
{
    return m_preferences.value(keys::resumeCaptureSetup).value_or(false);
}

void CaptureDrafts::setResumesSetup(bool isOn)
{
    m_preferences.setValue(keys::resumeCaptureSetup, isOn);
}

void CaptureDrafts::keepRecording(bool isOn)
{
    m_preferences.setValue(keys::captureDraftRecording, isOn);
}

void CaptureDrafts::keepForRestart()
{
    setResumesSetup(true);
    keepRecording(pendingRecording());
}

void CaptureDrafts::clear(const QString &savedTitle, const QString &savedNext)
{
    keepRecording(false);
    setResumesSetup(false);
    if (draftTitle() == savedTitle)
        draftTitle.set({});
    if (draftNext() == savedNext)
        draftNext.set({});
}

void CaptureDrafts::forgetProject(const QUuid &id)
{
    if (draftProjectID() == id)
        draftProjectID.set(std::nullopt);
}

} // namespace ardeno
