// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Alert.h"

#include "ui/controls/Label.h"

#include <memory>
#include <utility>

namespace ardeno {

namespace {

constexpr int mostMessageLines = 14;

} // namespace

Sheet *presentAlert(SheetHost &host, const AlertText &text, std::function<void(bool)> answered)
{
    auto *alert = new Sheet(text.title, 420, Sheet::Kind::Alert);
    alert->column()->setSpacing(10);
    QLabel *const title = makeParagraphOfLines(4, TextStyle::BarTitle);
    title->setText(text.title);
    alert->column()->addWidget(title);
    if (!text.message.isEmpty()) {
        QLabel *const message = makeParagraphOfLines(mostMessageLines, TextStyle::Body, Role::Dim);
        message->setText(text.message);
        alert->column()->addWidget(message);
        alert->setAccessibleDescription(text.message);
    }
    alert->column()->addSpacing(6);

    const auto reply = std::make_shared<std::function<void(bool)>>(std::move(answered));
    alert->setOnCancel([reply] {
        if (const auto once = std::exchange(*reply, nullptr))
            once(false);
    });
    Button *cancel = nullptr;
    if (!text.cancel.isEmpty())
        cancel = alert->addButton(text.cancel, Button::Kind::Bordered, [alert] { alert->close(); });
    Button *const confirm = alert->addButton(text.confirm, text.kind, [alert, reply] {
        const auto once = std::exchange(*reply, nullptr);
        alert->close();
        if (once)
            once(true);
    });
    const bool isSafe = text.kind != Button::Kind::Destructive || !cancel;
    alert->setDefaultButton(isSafe ? confirm : cancel);
    alert->setFirstFocus(isSafe ? confirm : cancel);
    host.present(alert);
    return alert;
}

} // namespace ardeno
