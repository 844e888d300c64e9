// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace ardeno {

// Notes the signals that ask a program to end, but for those that it was started to ignore. One object at a time.
class EndSignals final : public QObject {
public:
    enum class Again { Note, EndAtOnce }; // What the next signal does.

    // The handler is called by the event loop, once or more often.
    explicit EndSignals(Again again, std::function<void()> handler = {});
    ~EndSignals() override;

    // The number of the last one that was noted; 0: there was none.
    static int caught();

private:
    struct Former;
    std::vector<Former> m_former;
};

} // namespace ardeno
