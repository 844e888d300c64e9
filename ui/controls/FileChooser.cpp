// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/FileChooser.h"

#include "ui/theme/AppTheme.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

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

constexpr const char *portalService = "org.freedesktop.portal.Desktop";
constexpr const char *portalPath = "/org/freedesktop/portal/desktop";
constexpr const char *requestInterface = "org.freedesktop.portal.Request";

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

QString picturesFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFile::exists(pictures) ? pictures : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

QVariantMap portalOptions(const FileChooser::Question &question, const QString &token)
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
            {"current_folder", QFile::encodeName(picturesFolder()).append('\0')}};
}

// Of the theme, for a dialog whose parts the toolkit draws, which uses every role as it is meant.
QPalette stockPalette()
{
    QPalette palette = AppTheme::instance().palette();
    palette.setColor(QPalette::Light, themeColor(Role::Card));
    palette.setColor(QPalette::Midlight, themeColor(Role::Line));
    palette.setColor(QPalette::Mid, themeColor(Role::Line));
    palette.setColor(QPalette::Dark, themeColor(Role::Outline));
    palette.setColor(QPalette::Shadow, themeColor(Role::Outline));
    palette.setColor(QPalette::BrightText, themeColor(Role::Text));
    palette.setColor(QPalette::LinkVisited, themeColor(Role::AccentText));
    return palette;
}

} // namespace

void FileChooser::ask(QWidget *window, const Question &question, Chosen chosen)
{
    if (window->findChild<FileChooser *>({}, Qt::FindDirectChildrenOnly))
        return;
    auto *chooser = new FileChooser(window, question, std::move(chosen));
    chooser->askPortal();
}

FileChooser::FileChooser(QWidget *window, Question question, Chosen chosen)
    : QObject(window), m_window(window), m_question(std::move(question)), m_chosen(std::move(chosen))
{
}

void FileChooser::askPortal()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        askHere();
        return;
    }
    static int asked = 0;
    const QString token = QString("ardeno%1").arg(++asked);
    const QString sender = bus.baseService().mid(1).replace('.', '_');
    // Before the question, so that no answer is missed.
    bus.connect(portalService, QString("%1/request/%2/%3").arg(portalPath, sender, token), requestInterface, "Response",
                this, SLOT(answered(uint, QVariantMap)));
    auto *const life = new QDBusServiceWatcher(portalService, bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(life, &QDBusServiceWatcher::serviceUnregistered, this,
            &QObject::deleteLater); // Its dialog has gone with it.
    QDBusMessage call =
        QDBusMessage::createMethodCall(portalService, portalPath, "org.freedesktop.portal.FileChooser", "OpenFile");
    const QString parent =
        QGuiApplication::platformName() == "xcb" ? "x11:" + QString::number(m_window->winId(), 16) : QString();
    call << parent << m_question.title << portalOptions(m_question, token);
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &FileChooser::portalHasCall);
}

void FileChooser::portalHasCall(QDBusPendingCallWatcher *call)
{
    const QDBusPendingReply<QDBusObjectPath> reply = *call;
    call->deleteLater();
    if (!reply.isError())
        return;
    delete findChild<QDBusServiceWatcher *>();
    askHere(); // There is no portal, or it has no dialog.
}

void FileChooser::answered(uint code, const QVariantMap &results)
{
    const QStringList addresses = results.value("uris").toStringList();
    const Chosen chosen = std::exchange(m_chosen, nullptr);
    deleteLater();
    if (code == 0 && !addresses.isEmpty() && chosen)
        chosen(QUrl(addresses.first()).toLocalFile());
}

void FileChooser::askHere()
{
    auto *dialog = new QFileDialog(m_window, m_question.title, picturesFolder());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setPalette(stockPalette());
    dialog->setNameFilters({m_question.kind + " (" + m_question.patterns.join(' ') + ')', m_question.all + " (*)"});
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) { m_chosen(path); });
    connect(dialog, &QObject::destroyed, this,
            [this] { QTimer::singleShot(std::chrono::milliseconds(0), this, &FileChooser::takeKeysBack); });
    dialog->open();
}

// The system may give the keys back to the window before the dialog has gone; the toolkit then forgets that.
void FileChooser::takeKeysBack()
{
    if (!QApplication::activeWindow() && QGuiApplication::focusWindow() == m_window->windowHandle())
        QApplication::setActiveWindow(m_window);
    deleteLater();
}

} // namespace ardeno
