// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/HotKeys.h"
#include "desktop/OwnWindows.h"

#include <utility>

namespace ardeno {

// Where no keys can be listened to.
class NullHotKeys final : public HotKeys {
public:
    explicit NullHotKeys(QString reason) : m_reason(std::move(reason)) {}

    Capability availability() const override { return Capability::unavailable(m_reason); }

    void listen(Combination, Listener) override { throw notAvailable(m_reason); }

    void release() override {}

private:
    QString m_reason;
};

// Where nothing can be asked for windows.
class NullOwnWindows final : public OwnWindows {
public:
    void bringToFront(quint64) override {}

    void floatAbove(quint64) override {}

    void rememberFocus() override {}

    void returnFocus(quint64) override {}
};

} // namespace ardeno
