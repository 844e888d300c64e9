// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureFlow.h"
#include "store/ProjectOperations.h"
#include "store/ScreenAccessFlow.h"

namespace ardeno {

class Newsletter;

// Saves what the capture form says.
class FormCapture final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::FormCapture)

public:
    PublishedBy<bool, FormCapture> savingForm; // The form's own capture; while something else is, it can be filled in.

    struct Parts {
        Operations &operations;
        const Library &library;
        ProjectOperations &projects;
        CaptureFlow &capture;
        CaptureDrafts &drafts;
        OpenSheets &sheets;
        ScreenAccessFlow &screenAccess;
        Newsletter &newsletter;
    };

    explicit FormCapture(Parts parts) : m_parts(parts) {}

    // With a session, starts it.
    QCoro::Task<Outcome> captureMoment(QString title, QString next, CaptureKind kind);

private:
    // What of the form is being saved.
    struct FormInUse {
        QString title;
        QString next;
        bool hasSheet;
        bool hasPanel;
    };

    QCoro::Task<Outcome> captureForm(QString title, QString next, CaptureKind kind);
    std::optional<QUuid> draftProject(Outcome *outcome);
    void finishForm(const FormInUse &saved);

    Parts m_parts;
};

} // namespace ardeno
