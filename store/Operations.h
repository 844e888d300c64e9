// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Navigation.h"

#include <QCoroTask>

namespace ardeno {

// How every operation ends: its audience is told. Knows what is under way, too; whoever only shows that gets it const.
class Operations final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::Operations)

public:
    template <typename T>
    using Published = PublishedBy<T, Operations>;

    Published<bool> busy;    // Something is captured, saved or resumed: nothing else of the kind can begin.
    Published<bool> working; // Something goes on that the end of the program waits for.

    Operations(Messages &messages, const Library &library, const Navigation &navigation);

    // Ends an operation: its audience is told.
    template <typename Result>
    Result concluded(Result outcome, Audience audience = Audience::Window);
    // The same for one that takes time, whatever ends it.
    template <typename Result>
    QCoro::Task<Result> carryOut(QCoro::Task<Result> work, Audience audience = Audience::Window);

    void setBusy(bool isBusy);
    // Ends when nothing is busy.
    QCoro::Task<void> whenIdle() const;

private:
    bool isShown(const Outcome &outcome) const;

    Messages &m_messages;
    const Library &m_library;
    const Navigation &m_navigation;
    int m_running = 0; // Operations that take time.
};

} // namespace ardeno
