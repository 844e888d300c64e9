// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/FirefoxSession.h"

#include "model/JsonText.h"
#include "platform/linux/common/MozLz4.h"
#include "platform/linux/common/SessionFile.h"

#include <QFileInfo>
#include <QThread>

#include <simdjson.h>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

namespace ondemand = simdjson::ondemand;

QString text(simdjson::simdjson_result<ondemand::value> value)
{
    std::string_view token;
    if (value.raw_json_token().get(token) != simdjson::SUCCESS || token.size() < 2 || token.front() != '"')
        return {};
    // Half of a surrogate pair is legal there, as when a page cuts its title short; the parser's own way refuses it.
    token = token.substr(1, token.find_last_of('"') - 1);
    return json::TextDecoder().decode(token).value_or(QString());
}

qint64 integer(simdjson::simdjson_result<ondemand::value> value, qint64 otherwise)
{
    double number = 0;
    if (value.get_double().get(number) != simdjson::SUCCESS || !(std::abs(number) < 1e9))
        return otherwise;
    return static_cast<qint64>(number);
}

bool isTrue(simdjson::simdjson_result<ondemand::value> value)
{
    bool truth = false;
    return value.get_bool().get(truth) == simdjson::SUCCESS && truth;
}

// The page that the tab shows: the entry of its index, counted from 1, else the nearest. Throws when the text is
// damaged.
std::optional<SessionTab> readTab(ondemand::object tab)
{
    const qint64 index = integer(tab["index"], 0);
    ondemand::array entries;
    if (tab["entries"].get_array().get(entries) != simdjson::SUCCESS)
        return std::nullopt;
    std::optional<SessionTab> shown;
    qint64 number = 0;
    for (auto each : entries) {
        ondemand::object entry = each.get_object();
        // Without a sensible index the last one counts.
        if (++number > index && index > 0 && shown)
            continue;
        shown = SessionTab{.url = text(entry["url"])};
        shown->title = text(entry["title"]);
    }
    return shown;
}

SessionWindow readWindow(ondemand::object object)
{
    SessionWindow window;
    for (auto tab : object["tabs"].get_array()) {
        if (auto page = readTab(tab.get_object()))
            window.tabs.append(std::move(*page));
    }
    window.selectedTab = integer(object["selected"], 1) - 1;
    const auto part = [&](const char *name) { return static_cast<double>(integer(object[name], 0)); };
    const WindowRect frame = {part("screenX"), part("screenY"), part("width"), part("height")};
    if (frame.width > 0 && frame.height > 0)
        window.frame = frame;
    window.isAtFrame = text(object["sizemode"]) == "normal";
    window.isOrdinary = !isTrue(object["isPopup"]);
    if (isTrue(object["isPrivate"]))
        window.tabs.clear();
    return window;
}

// The session of one profile; absent when neither of its files can be read.
std::optional<std::pair<QList<SessionWindow>, Date>> readProfile(const QString &folder, Date startedAt)
{
    constexpr int attempts = 2;
    constexpr unsigned long pause = 100; // Milliseconds.
    for (int attempt = 0; attempt < attempts; ++attempt) {
        for (const char *name : {"recovery.jsonlz4", "recovery.baklz4"}) {
            const auto file = SessionFile::read(folder + "/sessionstore-backups/" + name);
            // What lies there from an earlier run is not open now.
            if (!file || file->writtenAt < startedAt)
                continue;
            if (auto windows = FirefoxSession::windows(file->bytes))
                return std::pair(std::move(*windows), file->writtenAt);
        }
        QThread::msleep(pause);
    }
    return std::nullopt;
}

} // namespace

std::optional<QList<SessionWindow>> FirefoxSession::windows(QByteArrayView file)
{
    const auto unpacked = unpackedMozLz4(file);
    if (!unpacked)
        return std::nullopt;
    const QByteArrayView view = unpacked->view();
    const auto length = static_cast<size_t>(view.size());
    QList<SessionWindow> windows;
    try {
        ondemand::parser parser;
        ondemand::document document = parser.iterate(view.data(), length, length + simdjson::SIMDJSON_PADDING);
        for (auto each : document["windows"].get_array()) {
            SessionWindow window = readWindow(each.get_object());
            if (!window.tabs.isEmpty())
                windows.append(std::move(window));
        }
    } catch (const simdjson::simdjson_error &) {
        return std::nullopt;
    }
    return windows;
}

BrowserSession FirefoxSession::read(const BrowserProcess &process)
{
    BrowserSession session;
    for (const QString &lock : process.openFiles) {
        const QString path = BrowserProcesses::reachablePath(process, lock);
        if (const auto profile = readProfile(path.left(path.lastIndexOf('/')), process.startedAt)) {
            session.windows += profile->first;
            session.writtenAt = profile->second;
            ++session.readProfiles;
        } else {
            ++session.unreadProfiles;
        }
    }
    if (process.openFiles.isEmpty())
        ++session.unreadProfiles;
    return session;
}

} // namespace ardeno
