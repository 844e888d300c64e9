// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/AccessibleDocuments.h"

#include "platform/linux/files/PathText.h"

#include <chrono>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds longest(300);
constexpr auto accessible = "org.a11y.atspi.Accessible";
constexpr auto document = "org.a11y.atspi.Document";
constexpr auto root = "/org/a11y/atspi/accessible/root";

std::chrono::milliseconds left(const QDeadlineTimer &deadline)
{
    return std::chrono::milliseconds(deadline.remainingTime());
}

bool contains(const BusValue &texts, const QString &text)
{
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (texts.at(i).text() == text)
            return true;
    }
    return false;
}

} // namespace

void AccessibleDocuments::connect() const
{
    const QDeadlineTimer deadline(longest);
    const SessionBus::Question question{"org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", {}};
    const QString address = m_session.bus().ask(question, left(deadline)).at(0).text();
    m_bus = SessionBus::at(address, left(deadline));
    for (const Object &application : children({"org.a11y.atspi.Registry", root}, deadline))
        m_services.insert(m_bus.processOf(application.service, left(deadline)), application.service);
}

QList<AccessibleDocuments::Object> AccessibleDocuments::children(const Object &object,
                                                                 const QDeadlineTimer &deadline) const
{
    constexpr qsizetype most = 64; // A table of thousands of cells is no way to a document.
    const SessionBus::Question question{object.service, object.path, accessible, "GetChildren", {}};
    const BusValue answer = m_bus.ask(question, left(deadline)).at(0);
    QList<Object> found;
    for (qsizetype i = 0; i < qMin(answer.size(), most); ++i)
        found.append({answer.at(i).at(0).text(), answer.at(i).at(1).text()});
    return found;
}

QString AccessibleDocuments::documentOf(const Object &object, const QDeadlineTimer &deadline) const
{
    const SessionBus::Question interfaces{object.service, object.path, accessible, "GetInterfaces", {}};
    if (!contains(m_bus.ask(interfaces, left(deadline)).at(0), document))
        return {};
    const SessionBus::Question question{object.service, object.path, document, "GetAttributes", {}};
    const BusValue attributes = m_bus.ask(question, left(deadline)).at(0);
    for (qsizetype i = 0; i < attributes.size(); ++i) {
        const QString name = attributes.at(i).at(0).text();
        const auto path = PathText::fromAddress(attributes.at(i).at(1).text().toUtf8());
        if ((name == "DocURL" || name == "URI") && path && PathText::isFile(*path))
            return *path;
    }
    return {};
}

QStringList AccessibleDocuments::documentsBelow(const Object &window, const QDeadlineTimer &deadline) const
{
    QStringList found;
    QList<Object> queue = {window};
    for (qsizetype i = 0; i < queue.size() && !deadline.hasExpired(); ++i) {
        const QString path = documentOf(queue[i], deadline);
        if (path.isEmpty())
            queue += children(queue[i], deadline);
        else if (!found.contains(path))
            found.append(path);
    }
    // What was not seen might be another document.
    return deadline.hasExpired() ? QStringList() : found;
}

QStringList AccessibleDocuments::documents(qint64 processID, const QString &windowTitle) const
{
    std::call_once(m_once, [this] { connect(); });
    const auto service = m_services.constFind(processID);
    if (service == m_services.constEnd())
        return {};
    const QDeadlineTimer deadline(longest);
    QStringList found;
    for (const Object &window : children({*service, root}, deadline)) {
        const BusValue name = m_bus.property(window.service, window.path, accessible, "Name", left(deadline));
        if (name.text() == windowTitle)
            found += documentsBelow(window, deadline);
    }
    return found;
}

} // namespace ardeno
