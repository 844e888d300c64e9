// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/roads/Hand.h"

#include <QTest>

namespace ardeno {

namespace {

constexpr int timeForHovering = 40; // Milliseconds.

QStringList moveOf(const QPoint &place)
{
    return {"mousemove", QString::number(place.x()), QString::number(place.y())};
}

} // namespace

void Hand::replaceText(const QString &text) const
{
    m_window.key("ctrl+a");
    m_window.type(text);
}

void PointerHand::open(const RowOf &row)
{
    m_window.click(row.row);
}

void PointerHand::chooseOf(const RowOf &row, const QString &entry)
{
    m_window.click(row.row, 3);
    clickEntry(entry);
}

void PointerHand::chooseAt(const QString &button, const QString &entry)
{
    m_window.click(button);
    clickEntry(entry);
}

void PointerHand::write(const QString &field, const QString &text)
{
    m_window.click(field, 1, RunningWindow::Kind::Field);
    replaceText(text);
}

void PointerHand::leave()
{
    m_window.click("What’s a checkpoint?"); // It takes no focus.
}

void PointerHand::remove(const RowOf &item, const QString &button)
{
    m_window.click(item.row);
    m_window.click(button);
}

void PointerHand::clickEntry(const QString &entry) const
{
    QRect menu;
    REQUIRE(eventually([&] {
        menu = m_window.menuPlace();
        return !menu.isEmpty();
    }));
    constexpr int step = 8;
    for (int y = menu.top() + step; y < menu.bottom(); y += step) {
        outputOf("xdotool", moveOf({menu.center().x(), y}));
        if (QTest::qWaitFor([&] { return m_focus.isAt(entry); }, timeForHovering)) {
            outputOf("xdotool", {"click", "1"});
            return;
        }
    }
    CAPTURE(m_focus.name());
    FAIL_CHECK("There is no entry " << entry);
}

void KeysHand::step(const QString &key) const
{
    const int before = m_focus.count();
    m_window.key(key);
    CAPTURE(m_focus.name());
    REQUIRE(eventually([&] { return m_focus.count() > before; }));
}

void KeysHand::goTo(const QString &control) const
{
    REQUIRE(m_window.sees(control));
    constexpr int mostControls = 150;
    QCoreApplication::processEvents(); // What was told before.
    for (int at = 0; at < mostControls && !m_focus.isAt(control); ++at)
        step("Tab");
    CAPTURE(control);
    REQUIRE(m_focus.isAt(control));
}

void KeysHand::goTo(const RowOf &row) const
{
    goTo(row.list);
    const QStringList rows = m_window.reader->rows(row.list);
    const auto isIt = [&](const QString &name) { return name == row.row || name.startsWith(row.row + ','); };
    const qsizetype at = std::distance(rows.begin(), std::find_if(rows.begin(), rows.end(), isIt));
    CAPTURE(row.row);
    CAPTURE(rows);
    REQUIRE(at < rows.size());
    if (rows.size() == 1)
        return; // The list is there with its first row.
    const bool isAcross = row.list == "Checkpoint history";
    QStringList keys{"End", "Home"};
    for (qsizetype step = 0; step < at; ++step)
        keys << (isAcross ? "Right" : "Down");
    outputOf("xdotool", QStringList{"key", "--delay", "4"} + keys);
    REQUIRE(eventually([&] { return m_focus.isAt(row.row); }));
}

void KeysHand::returnAt(const QString &entry) const
{
    constexpr int mostEntries = 40;
    for (int at = 0; at < mostEntries && !m_focus.isAt(entry); ++at)
        step("Down");
    CAPTURE(entry);
    REQUIRE(m_focus.isAt(entry));
    m_window.key("Return");
}

void KeysHand::press(const QString &name)
{
    goTo(name);
    m_window.key("space");
}

void KeysHand::open(const RowOf &row)
{
    goTo(row);
    m_window.key("Return");
}

void KeysHand::chooseOf(const RowOf &row, const QString &entry)
{
    goTo(row);
    m_window.key("shift+F10");
    returnAt(entry);
}

void KeysHand::chooseAt(const QString &button, const QString &entry)
{
    press(button);
    returnAt(entry);
}

void KeysHand::write(const QString &field, const QString &text)
{
    goTo(field);
    replaceText(text);
}

void KeysHand::remove(const RowOf &item, const QString &)
{
    goTo(item);
    m_window.key("Delete");
}

void KeysHand::answer(const QString &button)
{
    goTo(button);
    desktop_test::waitUntilRead();
    m_window.key("space");
}

void KeysHand::moveDown(const RowOf &row, const QString &)
{
    goTo(row);
    m_window.key("alt+Down");
}

} // namespace ardeno
