// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Sheet.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace ardeno {

namespace {

class SheetInterface final : public QAccessibleWidget {
public:
    explicit SheetInterface(Sheet *sheet)
        : QAccessibleWidget(sheet,
                            sheet->kind() == Sheet::Kind::Alert ? QAccessible::AlertMessage : QAccessible::Dialog)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

// Of the window's children only the sheet exists while there is one.
class CoverableWindowInterface final : public QAccessibleWidget {
public:
    explicit CoverableWindowInterface(CoverableWindow *window) : QAccessibleWidget(window, QAccessible::Window) {}

    int childCount() const override { return sheet() ? 1 : QAccessibleWidget::childCount(); }

    QAccessibleInterface *child(int index) const override
    {
        if (Sheet *const shown = sheet())
            return index == 0 ? QAccessible::queryAccessibleInterface(shown) : nullptr;
        return QAccessibleWidget::child(index);
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (Sheet *const shown = sheet())
            return child && child->object() == shown ? 0 : -1;
        return QAccessibleWidget::indexOfChild(child);
    }

private:
    Sheet *sheet() const { return static_cast<CoverableWindow *>(object())->sheets().topSheet(); }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    if (auto *const sheet = dynamic_cast<Sheet *>(object))
        return new SheetInterface(sheet);
    if (auto *const window = dynamic_cast<CoverableWindow *>(object))
        return new CoverableWindowInterface(window);
    return nullptr;
}

} // namespace

void installSheetAccessibility()
{
    QAccessible::installFactory(makeInterface);
}

} // namespace ardeno
