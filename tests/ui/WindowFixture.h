// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/store/StoreFixture.h"
#include "ui/main/MainWindow.h"

#include <QAbstractButton>
#include <QListView>

#include <functional>
#include <memory>

namespace ardeno {

class QuickListEditor;

// The main window over a store on a real folder, worked by keys and clicks as a person would.
struct WindowFixture : StoreFixture {
    // What the window opens besides what it builds itself; said before it is opened.
    bool hasSheets = false;
    bool hasSettings = false;
    std::unique_ptr<MainWindow> window;

    virtual ~WindowFixture() { window.reset(); }

    // A window on what is stored, as after a start of the program.
    void openWindow();
    void openProjects(const QStringList &names = {"Apples", "Books", "Cellar", "Dance"});
    // The same, on a new project.
    QUuid openProject();

    struct TwoCheckpoints {
        Checkpoint older;
        Checkpoint newer;
    };

    // Called so, of the selected project; the newer one is shown.
    TwoCheckpoints saveTwoCheckpoints();
    // Closes the window and the store, and opens both anew.
    void restart();

    // Runs the event loop until nothing is queued any more.
    static void settle();
    static bool eventually(const std::function<bool()> &condition);
    // What it does after a pause is done.
    static bool comesToRest(const QWidget *widget);

    // What a person can see and press: visible, enabled, and not beneath a sheet. Null when there is none.
    QAbstractButton *findButton(const QString &text) const;
    // Seen as the former, but not to be pressed.
    bool isOff(const QString &text) const;
    // As findButton(); it must be there.
    QAbstractButton *button(const QString &text) const;
    void click(const QString &buttonText);
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);
    // Chooses an entry of the menu that is open.
    void choose(const QString &entry);
    bool seesText(const QString &text) const;
    QListView *list(const QString &name) const;
    void clickRow(QListView *view, int row, Qt::MouseButton which = Qt::LeftButton);
    QWidget *widget(const QString &accessibleName) const;
    // Of the sheet on top; what lies below may have one of the same name.
    QWidget *field(const QString &name) const;
    // Where the checkpoint that is shown is written on.
    QuickListEditor *note(const QString &title = "Where you left off") const;
    static QString selectedRow(const QListView *view);

    // The first part of the window of this class; null when there is none.
    template <typename View>
    View *find() const
    {
        for (QWidget *const candidate : window->findChildren<QWidget *>()) {
            if (auto *const found = dynamic_cast<View *>(candidate))
                return found;
        }
        return nullptr;
    }

    // Leaves a picture of the window for people to look at.
    void picture(const QString &name) const;
    // One of each appearance. No text may be cut there, and every control has a name.
    void pictures(const QString &name) const;

protected:
    // Where texts are looked for, and where what can be pressed.
    virtual QWidget *surface() const { return window.get(); }

    virtual QWidget *pressable() const;

private:
    // All that are seen with this text or name.
    QList<QAbstractButton *> buttons(const QString &text) const;
};

} // namespace ardeno
