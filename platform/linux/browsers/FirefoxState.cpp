// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/FirefoxState.h"

#include "platform/linux/browsers/MozLz4.h"
#include "platform/linux/browsers/StateFile.h"
#include "json/JsonText.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

namespace ondemand = simdjson::ondemand;

// The history of a tab, as it stands in the text.
struct Entry {
    std::string_view url;
    std::string_view title;
};

// A text's token without its quotes; empty when something else stands there.
std::string_view token(ondemand::value value)
{
    const std::string_view raw = value.raw_json_token();
    const bool isText = raw.size() >= 2 && raw.front() == '"';
    return isText ? raw.substr(1, raw.find_last_of('"') - 1) : std::string_view();
}

// Half of a surrogate pair is legal there, as when a page cuts its title short; the parser's own way refuses it.
QString decoded(std::string_view token)
{
    return json::TextDecoder().decode(token).value_or(QString());
}

qint64 integer(ondemand::value value, qint64 otherwise)
{
    double number = 0;
    if (value.get_double().get(number) != simdjson::SUCCESS || !(std::abs(number) < 1e9))
        return otherwise;
    return static_cast<qint64>(number);
}

bool isTrue(ondemand::value value)
{
    bool truth = false;
    return value.get_bool().get(truth) == simdjson::SUCCESS && truth;
}

// In the order of the text: looking fields up by name is undefined in a damaged text. Throws when it is damaged.
template <typename Read>
void forEachField(ondemand::object object, Read read)
{
    for (auto result : object) {
        ondemand::field field = std::move(result);
        read(field.key(), field.value());
    }
}

// Nothing when no list stands there. Throws when the text is damaged or an element is no object.
template <typename Read>
void forEachObject(ondemand::value value, Read read)
{
    ondemand::array list;
    if (value.get_array().get(list) != simdjson::SUCCESS)
        return;
    for (auto element : list)
        read(element.get_object());
}

// The page that the tab shows: the entry of its index, counted from 1, else the nearest.
void readTab(QList<ListedTab> &tabs, ondemand::object tab)
{
    std::vector<Entry> entries;
    qint64 index = 0;
    forEachField(tab, [&](ondemand::raw_json_string key, ondemand::value value) {
        if (key == "index")
            index = integer(value, 0);
        if (key != "entries")
            return;
        forEachObject(value, [&](ondemand::object object) {
            Entry &entry = entries.emplace_back();
            forEachField(object, [&](ondemand::raw_json_string name, ondemand::value part) {
                if (name == "url")
                    entry.url = token(part);
                else if (name == "title")
                    entry.title = token(part);
            });
        });
    });
    const auto count = static_cast<qint64>(entries.size());
    if (count == 0)
        return;
    const Entry &shown = entries[static_cast<size_t>((index > 0 ? std::min(index, count) : count) - 1)];
    tabs.append({decoded(shown.url), decoded(shown.title)});
}

void readFrame(WindowRect &frame, ondemand::raw_json_string key, ondemand::value value)
{
    static constexpr std::array parts = {std::pair{"screenX", &WindowRect::x}, std::pair{"screenY", &WindowRect::y},
                                         std::pair{"width", &WindowRect::width},
                                         std::pair{"height", &WindowRect::height}};
    for (const auto &[name, part] : parts) {
        if (key == name)
            frame.*part = static_cast<double>(integer(value, 0));
    }
}

ListedWindow readWindow(ondemand::object object)
{
    ListedWindow window;
    WindowRect frame;
    bool isPrivate = false;
    window.isAtFrame = false;
    forEachField(object, [&](ondemand::raw_json_string key, ondemand::value value) {
        if (key == "tabs")
            forEachObject(value, [&](ondemand::object tab) { readTab(window.tabs, tab); });
        else if (key == "selected")
            window.selectedTab = integer(value, 1) - 1;
        else if (key == "sizemode")
            window.isAtFrame = token(value) == "normal";
        else if (key == "isPopup")
            window.isOrdinary = !isTrue(value);
        else if (key == "isPrivate")
            isPrivate = isTrue(value);
        else
            readFrame(frame, key, value);
    });
    if (frame.width > 0 && frame.height > 0)
        window.frame = frame;
    if (isPrivate)
        window.tabs.clear();
    return window;
}

// The session of one profile; absent when neither of its files can be read.
std::optional<std::pair<QList<ListedWindow>, Date>> readProfile(const QString &folder, Date startedAt)
{
    for (const char *name : {"recovery.jsonlz4", "recovery.baklz4"}) {
        const auto file = StateFile::read(folder + "/sessionstore-backups/" + name);
        // What lies there from an earlier run is not open now.
        if (!file || file->writtenAt < startedAt)
            continue;
        if (auto windows = FirefoxState::windows(file->bytes))
            return std::pair(std::move(*windows), file->writtenAt);
    }
    return std::nullopt;
}

} // namespace

std::optional<QList<ListedWindow>> FirefoxState::windows(QByteArrayView file)
{
    const auto unpacked = unpackedMozLz4(file);
    if (!unpacked)
        return std::nullopt;
    const QByteArrayView view = unpacked->view();
    const auto length = static_cast<size_t>(view.size());
    std::optional<QList<ListedWindow>> windows;
    try {
        ondemand::parser parser;
        ondemand::document document = parser.iterate(view.data(), length, length + simdjson::SIMDJSON_PADDING);
        for (auto result : document.get_object()) {
            ondemand::field field = std::move(result);
            if (field.key() != "windows")
                continue;
            windows.emplace();
            for (auto element : field.value().get_array())
                windows->append(readWindow(element.get_object()));
            break;
        }
    } catch (const simdjson::simdjson_error &) {
        return std::nullopt;
    }
    if (windows)
        windows->removeIf([](const ListedWindow &window) { return window.tabs.isEmpty(); });
    return windows;
}

BrowserState FirefoxState::read(const BrowserProcess &process)
{
    BrowserState session;
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
