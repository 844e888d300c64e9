// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace ardeno {

// What a program shows, by the names that a screen reader finds. The program is asked anew each time.
class AccessibleWindow final {
public:
    explicit AccessibleWindow(qint64 process);
    ~AccessibleWindow();
    AccessibleWindow(const AccessibleWindow &) = delete;
    AccessibleWindow &operator=(const AccessibleWindow &) = delete;

    // Whether something of this name is seen.
    bool has(const QString &name) const;
    // Does what the named button does; false when there is none, or none that is enabled.
    bool press(const QString &name) const;
    bool focus(const QString &name) const;

private:
    struct Application;
    std::unique_ptr<Application> m_application;
};

} // namespace ardeno
