// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Alert.h"

#include "ui/controls/Label.h"

#include <QElapsedTimer>
#include <QKeyEvent>

#include <memory>
#include <utility>

namespace ardeno {

namespace {

constexpr int mostMessageLines = 14;
constexpr int leastSeen = 500; // Milliseconds: what is pressed sooner was meant for something else.

// Keeps keys from answering what nobody can have read yet. It belongs to the alert.
class AnswerGuard final : public QObject {
public:
    explicit AnswerGuard(Sheet *alert) : QObject(alert), m_alert(alert)
    {
        m_seen.start();
        alert->installEventFilter(this);
        for (Button *const button : alert->findChildren<Button *>())
            button->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_alert && event->type() == QEvent::EnabledChange)
            m_seen.start(); // Another one above it has gone.
        return event->type() == QEvent::KeyPress && isTooSoon(*static_cast<QKeyEvent *>(event));
    }

private:
    bool isTooSoon(const QKeyEvent &event) const
    {
        const QList<int> answers = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space};
        return event.isAutoRepeat() || (answers.contains(event.key()) && m_seen.elapsed() < leastSeen);
    }

    Sheet *m_alert;
    QElapsedTimer m_seen;
};

} // namespace

Sheet *presentAlert(SheetHost &host, const AlertText &text, std::function<void(bool)> answered)
{
    auto *alert = new Sheet(text.title, 420, Sheet::Kind::Alert);
    alert->column()->setSpacing(10);
    QLabel *const title = makeParagraphOfLines(4, TextStyle::BarTitle);
    title->setText(text.title);
    alert->column()->addWidget(title);
    QStringList said;
    for (const QString &sentence : {text.message, text.detail}) {
        if (sentence.isEmpty())
            continue;
        QLabel *const paragraph = makeParagraphOfLines(mostMessageLines, TextStyle::Body, Role::Dim);
        paragraph->setText(sentence);
        alert->column()->addWidget(paragraph);
        said << sentence;
    }
    alert->setAccessibleDescription(said.join('\n'));
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
    new AnswerGuard(alert);
    host.present(alert);
    return alert;
}

} // namespace ardeno
