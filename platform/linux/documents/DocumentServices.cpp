// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/DocumentServices.h"

#include "platform/linux/files/PathText.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <array>
#include <chrono>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds servicePatience(200);
constexpr auto okular = "org.kde.okular";

// A viewer that keeps a register of who shows which file.
struct Register {
    const char *applicationID;
    const char *service;
    const char *path;
};

constexpr std::array registers = {
    Register{"org.gnome.Evince", "org.gnome.evince.Daemon", "/org/gnome/evince/Daemon"},
    Register{"atril", "org.mate.atril.Daemon", "/org/mate/atril/Daemon"},
    Register{"xreader", "org.x.reader.Daemon", "/org/x/reader/Daemon"},
};

const Register *registerOf(const QString &applicationID)
{
    const auto *found = std::find_if(registers.begin(), registers.end(), [&](const Register &known) {
        return applicationID == QLatin1String(known.applicationID);
    });
    return found == registers.end() ? nullptr : found;
}

// One object for each tab: "okular", "okular2", …
QStringList askOkular(const SessionBus &bus, qint64 processID)
{
    static const QRegularExpression node(R"re(<node name="(okular\d*)"/>)re");
    const QString service = u"org.kde.okular-%1"_qs.arg(processID);
    const SessionBus::Question objects{service, "/", "org.freedesktop.DBus.Introspectable", "Introspect", {}};
    const QString description = bus.ask(objects, servicePatience).at(0).text();
    QStringList found;
    for (auto match = node.globalMatch(description); match.hasNext();) {
        const SessionBus::Question shown{service, '/' + match.next().captured(1), okular, "currentDocument", {}};
        const QString path = bus.ask(shown, servicePatience).at(0).text();
        if (path.startsWith('/') && !found.contains(path))
            found.append(path);
    }
    return found;
}

QString fileAddress(const QString &path)
{
    return "file://" + QString::fromLatin1(QUrl::toPercentEncoding(path, "!$&'()*+,=:@/"));
}

QStringList askRegister(const SessionBus &bus, const Register &viewer, qint64 processID, const QStringList &candidates)
{
    QStringList found;
    for (const QString &path : candidates) {
        const SessionBus::Question question{
            viewer.service, viewer.path, viewer.service, "FindDocument", {fileAddress(path), false}};
        const QString owner = bus.ask(question, servicePatience).at(0).text();
        if (!owner.isEmpty() && bus.processOf(owner, servicePatience) == processID)
            found.append(path);
    }
    return found;
}

} // namespace

bool DocumentServices::answers(const QString &applicationID)
{
    return applicationID == QLatin1String(okular) || registerOf(applicationID);
}

QStringList DocumentServices::documents(const SessionBus &bus, const QString &applicationID, qint64 processID,
                                        const QStringList &candidates)
{
    QStringList found;
    if (const Register *const viewer = registerOf(applicationID))
        found = askRegister(bus, *viewer, processID, candidates);
    else if (applicationID == QLatin1String(okular))
        found = askOkular(bus, processID);
    found.removeIf([](const QString &path) { return !PathText::isFile(path); });
    return found;
}

} // namespace ardeno
