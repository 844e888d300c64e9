// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowMover.h"

#include <utility>

namespace ardeno {

// Where windows cannot be moved.
class NullWindowMover final : public WindowMover {
public:
    explicit NullWindowMover(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    QList<MovableWindow> windows() override { return {}; }

    QCoro::Task<QList<MoveResult>> move(QList<WindowMove> moves) override
    {
        co_return QList<MoveResult>(moves.size(), MoveResult::Refused);
    }

private:
    QString m_reason;
};

} // namespace ardeno
