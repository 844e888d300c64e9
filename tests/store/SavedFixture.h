// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

namespace ardeno {

// A store with one project and one checkpoint in it.
struct SavedFixture : StoreFixture {
    QUuid project = *store().projects.createProject("Thesis");
    Checkpoint saved = saveCheckpoint(project, "one", 1);

    const Checkpoint &now() { return *store().library.checkpoint(saved.id); }

    Outcome save(const QString &title)
    {
        const CaptureRequest request{project, title, {}, false};
        return blockOn(store().capture.saveMoment(request));
    }
};

} // namespace ardeno
