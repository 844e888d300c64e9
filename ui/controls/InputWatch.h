// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

namespace ardeno {

// Knows what the user does just now, so that what comes unasked does not come between. Where the control with the focus
// is off for a while, the focus waits for it and goes to no other one, which the next key would press; where it
// vanishes, the focus goes to its neighbour, and nothing scrolls.
class InputWatch final : public QObject {
public:
    static InputWatch &instance();

    // Whether somebody is in the middle of writing a text.
    bool isWriting() const;

    // Whether a key was pressed after the last click: focus is drawn for those who use keys.
    bool isByKeys() const { return m_isByKeys; }

    // Calls it once nobody writes, at once if nobody does; not any more when the context has gone.
    void whenPaused(QObject *context, const std::function<void()> &then);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit InputWatch(QObject *application);

    void keepPlace(QWidget *before, QWidget *now);
    void returnToPlace();
    void leaveVanishing(const QWidget *vanishing);
    void noteKey(QWidget *focused, QEvent *event);

    QElapsedTimer m_written; // Since the last key that wrote; invalid when another one followed.
    bool m_isByKeys = true;
    QPointer<QWidget> m_waiting; // Had the focus before it was off.
    QPointer<QWidget> m_parked;  // Has it meanwhile; null: none has.
    bool m_isParking = false;
};

} // namespace ardeno
