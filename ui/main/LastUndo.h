// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

namespace ardeno {

// The newest of what the window offers to take back: a removal from the checkpoint that is shown, or an archiving.
class LastUndo final {
public:
    explicit LastUndo(AppStore &store);

    bool isPossible() const { return isRemovalShown() || m_store.lastArchiving(); }

    void undo();

private:
    enum class Kind { Removal, Archiving };

    // Nothing changes that nobody sees.
    bool isRemovalShown() const;

    AppStore &m_store;
    Kind m_newest = Kind::Removal;
    Observations m_observations;
};

} // namespace ardeno
