// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/PortalFileDialogs.h"

#include "platform/linux/bus/Portal.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QFile>
#include <QUrl>

#include <utility>

namespace ardeno {

namespace {

// As the portal has them: whether it is a kind of file (1) or a pattern of names (0).
struct ChooserPattern {
    uint isKind = 0;
    QString text = {};
};

struct ChooserFilter {
    QString name = {};
    QList<ChooserPattern> patterns = {};
};

QDBusArgument &operator<<(QDBusArgument &argument, const ChooserPattern &pattern)
{
    argument.beginStructure();
    argument << pattern.isKind << pattern.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ChooserPattern &pattern)
{
    argument.beginStructure();
    argument >> pattern.isKind >> pattern.text;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const ChooserFilter &filter)
{
    argument.beginStructure();
    argument << filter.name << filter.patterns;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ChooserFilter &filter)
{
    argument.beginStructure();
    argument >> filter.name >> filter.patterns;
    argument.endStructure();
    return argument;
}

QVariantMap chooserOptions(const FileDialogs::Question &question, const QString &token)
{
    qDBusRegisterMetaType<ChooserPattern>();
    qDBusRegisterMetaType<QList<ChooserPattern>>();
    qDBusRegisterMetaType<ChooserFilter>();
    qDBusRegisterMetaType<QList<ChooserFilter>>();
    ChooserFilter known{.name = question.kind};
    for (const QString &pattern : question.patterns)
        known.patterns.append({.text = pattern});
    ChooserFilter all{.name = question.all};
    all.patterns.append({.text = "*"});
    return {{"handle_token", token},
            {"modal", true},
            {"filters", QVariant::fromValue(QList<ChooserFilter>{known, all})},
            {"current_folder", QFile::encodeName(question.folder).append('\0')}};
}

} // namespace

std::unique_ptr<FileDialogs::Asking> PortalFileDialogs::ask(const Question &question, Answered answered)
{
    auto asking = std::make_unique<PortalFileQuestion>(std::move(answered));
    asking->ask(question);
    return asking;
}

void PortalFileQuestion::ask(const FileDialogs::Question &question)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        answer(FileDialogs::Answer::NoDialog);
        return;
    }
    static int asked = 0;
    const QString token = QString("ardeno%1").arg(++asked);
    const QString sender = bus.baseService().mid(1).replace('.', '_');
    // Before the question, so that no answer is missed.
    bus.connect(Portal::service, QString("%1/request/%2/%3").arg(Portal::path, sender, token),
                "org.freedesktop.portal.Request", "Response", this, SLOT(choiceMade(uint, QVariantMap)));
    auto *const life = new QDBusServiceWatcher(Portal::service, bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(life, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { answer(FileDialogs::Answer::Closed); }); // Its dialog has gone with it.
    QDBusMessage call =
        QDBusMessage::createMethodCall(Portal::service, Portal::path, "org.freedesktop.portal.FileChooser", "OpenFile");
    const QString parent = question.window ? "x11:" + QString::number(question.window, 16) : QString();
    call << parent << question.title << chooserOptions(question, token);
    auto *const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &PortalFileQuestion::portalHasCall);
}

void PortalFileQuestion::portalHasCall(QDBusPendingCallWatcher *call)
{
    const QDBusPendingReply<QDBusObjectPath> reply = *call;
    call->deleteLater();
    if (reply.isError())
        answer(FileDialogs::Answer::NoDialog); // There is no portal, or it has no dialog.
}

void PortalFileQuestion::choiceMade(uint code, const QVariantMap &results)
{
    const QStringList addresses = results.value("uris").toStringList();
    if (code == 0 && !addresses.isEmpty())
        answer(FileDialogs::Answer::Chosen, QUrl(addresses.first()).toLocalFile());
    else
        answer(FileDialogs::Answer::Closed);
}

void PortalFileQuestion::answer(FileDialogs::Answer answer, const QString &path)
{
    if (const FileDialogs::Answered answered = std::exchange(m_answered, nullptr))
        answered(answer, path);
}

} // namespace ardeno
