// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/SnssReader.h"

#include "platform/linux/browsers/LittleEndian.h"

#include <QStringView>

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

// What a record says; others do not matter here.
enum Command : quint8 {
    SetTabWindow = 0,
    SetTabIndex = 2,
    PruneFromBack = 5,
    UpdateNavigation = 6,
    SelectNavigation = 7,
    SelectTab = 8,
    SetWindowType = 9,
    PruneFromFront = 11,
    SetWindowBounds = 14,
    SetWindowApp = 15,
    CloseTab = 16,
    CloseWindow = 17,
    Prune = 24,
    InitialStateEnd = 255,
};

constexpr qint32 versionWithMarker = 3; // Files of versions 2 and 4 are encrypted, 1 has no end of the initial state.
constexpr qint32 stateAtFrame = 1;
constexpr size_t longestHistory = 4096;           // Entries of one tab; the browser keeps 50.
constexpr qsizetype longestUrl = 2 * 1024 * 1024; // The browser's own limit, in bytes.
constexpr qsizetype longestTitle = 64 * 1024;     // In code units.

// One entry of a tab's history; the texts still lie in the file.
struct Navigation {
    qint32 index = 0;
    QByteArrayView url = {};
    QByteArrayView title = {}; // UTF-16, little-endian.
};

struct Tab {
    qint32 window = 0;
    qint32 index = 0;
    qint32 selectedNavigation = -1;
    std::vector<Navigation> navigations = {}; // Sorted by index.
};

struct Window {
    ListedWindow window = {};
    std::vector<std::pair<qint32, qint32>> tabs = {}; // Index and identifier.
};

auto firstFrom(std::vector<Navigation> &navigations, qint64 index)
{
    return std::partition_point(navigations.begin(), navigations.end(),
                                [&](const Navigation &each) { return each.index < index; });
}

// The history of one tab without `count` entries from `first` on; those behind move up.
void removeNavigations(Tab &tab, qint64 first, qint64 count)
{
    if (count <= 0)
        return;
    const qint64 end = first + count;
    auto behind = tab.navigations.erase(firstFrom(tab.navigations, first), firstFrom(tab.navigations, end));
    for (; behind != tab.navigations.end(); ++behind)
        behind->index -= static_cast<qint32>(count);
    if (tab.selectedNavigation >= end)
        tab.selectedNavigation -= static_cast<qint32>(count);
    else if (tab.selectedNavigation >= first)
        tab.selectedNavigation = static_cast<qint32>(std::max<qint64>(first - 1, 0));
}

// The state that the records of a file add up to.
class Replay final {
public:
    bool hasInitialState() const { return m_hasInitialState; }

    void apply(quint8 command, LittleEndian::Reader payload)
    {
        switch (command) {
        case SetWindowType:
        case SetWindowBounds:
        case SetWindowApp:
        case SelectTab:
        case CloseWindow:
            return applyToWindow(command, payload);
        case InitialStateEnd:
            m_hasInitialState = true;
            return;
        default:
            return applyToTab(command, payload);
        }
    }

    SnssReader::Session session();

private:
    void applyToWindow(quint8 command, LittleEndian::Reader payload);
    void applyToTab(quint8 command, LittleEndian::Reader payload);
    void prune(quint8 command, qint32 tab, qint32 first, LittleEndian::Reader payload);
    void updateNavigation(LittleEndian::Reader payload);

    std::map<qint32, Window> m_windows;
    std::unordered_map<qint32, Tab> m_tabs;
    QSet<QString> m_closed;
    bool m_hasInitialState = false;
};

void setBounds(ListedWindow &window, LittleEndian::Reader payload)
{
    const auto x = payload.int32();
    const auto y = payload.int32();
    const auto width = payload.int32();
    const auto height = payload.int32();
    const auto state = payload.int32();
    if (!payload.isIntact())
        return;
    window.frame = WindowRect{static_cast<double>(x), static_cast<double>(y), static_cast<double>(width),
                              static_cast<double>(height)};
    window.isAtFrame = state == stateAtFrame;
}

void Replay::applyToWindow(quint8 command, LittleEndian::Reader payload)
{
    if (command == SetWindowApp)
        payload = payload.pickle();
    const qint32 id = payload.int32();
    if (!payload.isIntact())
        return;
    if (command == CloseWindow) {
        m_windows.erase(id);
        m_closed.insert(QString::number(id));
        std::erase_if(m_tabs, [&](const auto &tab) { return tab.second.window == id; });
        return;
    }
    ListedWindow &window = m_windows[id].window;
    if (command == SetWindowBounds)
        setBounds(window, payload);
    else if (command == SetWindowApp)
        window.isOrdinary = window.isOrdinary && payload.string8(longestUrl).isEmpty();
    else if (const qint32 value = payload.int32(); payload.isIntact() && command == SetWindowType)
        window.isOrdinary = window.isOrdinary && value == 0;
    else if (payload.isIntact())
        window.selectedTab = value;
}

void Replay::applyToTab(quint8 command, LittleEndian::Reader payload)
{
    if (command == UpdateNavigation)
        return updateNavigation(payload);
    const qint32 first = payload.int32();
    if (command == CloseTab) {
        if (payload.isIntact())
            m_tabs.erase(first);
        return;
    }
    const qint32 second = payload.int32();
    if (!payload.isIntact())
        return;
    switch (command) {
    case SetTabWindow:
        m_windows.try_emplace(first);
        m_tabs[second].window = first;
        break;
    case SetTabIndex:
        m_tabs[first].index = second;
        break;
    case SelectNavigation:
        m_tabs[first].selectedNavigation = second;
        break;
    default:
        prune(command, first, second, payload);
    }
}

void Replay::prune(quint8 command, qint32 tab, qint32 first, LittleEndian::Reader payload)
{
    const auto found = m_tabs.find(tab);
    if (found == m_tabs.end() || first < 0)
        return;
    auto &navigations = found->second.navigations;
    if (command == PruneFromBack)
        navigations.erase(firstFrom(navigations, first), navigations.end());
    else if (command == PruneFromFront)
        removeNavigations(found->second, 0, first);
    else if (const qint32 count = payload.int32(); command == Prune && payload.isIntact())
        removeNavigations(found->second, first, count);
}

void Replay::updateNavigation(LittleEndian::Reader payload)
{
    payload = payload.pickle();
    const qint32 tab = payload.int32();
    Navigation entry;
    entry.index = payload.int32();
    entry.url = payload.string8(longestUrl);
    entry.title = payload.string16(longestTitle);
    if (!payload.isIntact() || entry.index < 0)
        return;
    auto &navigations = m_tabs[tab].navigations;
    const auto place = firstFrom(navigations, entry.index);
    if (place != navigations.end() && place->index == entry.index)
        *place = entry;
    else if (navigations.size() < longestHistory)
        navigations.insert(place, entry);
}

// The page that the tab shows: the selected entry, else the next one, else the last.
ListedTab shownPage(Tab &tab)
{
    auto entry = firstFrom(tab.navigations, tab.selectedNavigation);
    if (entry == tab.navigations.end() || tab.selectedNavigation < 0)
        entry = tab.navigations.end() - 1;
    return {QString::fromUtf8(entry->url), LittleEndian::text(entry->title)};
}

SnssReader::Session Replay::session()
{
    for (const auto &[id, tab] : m_tabs) {
        const auto window = m_windows.find(tab.window);
        if (window != m_windows.end() && !tab.navigations.empty())
            window->second.tabs.emplace_back(tab.index, id);
    }
    QList<ListedWindow> windows;
    for (auto &[id, each] : m_windows) {
        if (each.tabs.empty())
            continue;
        std::sort(each.tabs.begin(), each.tabs.end());
        each.window.id = QString::number(id);
        for (const auto &[index, tab] : each.tabs)
            each.window.tabs.append(shownPage(m_tabs[tab]));
        windows.append(std::move(each.window));
    }
    return {windows, m_closed};
}

} // namespace

std::optional<SnssReader::Session> SnssReader::read(QByteArrayView file)
{
    constexpr QByteArrayView magic = "SNSS";
    LittleEndian::Reader reader(file);
    if (reader.bytes(magic.size()) != magic || reader.int32() != versionWithMarker)
        return std::nullopt;
    Replay replay;
    while (true) {
        const qsizetype size = reader.uint16();
        LittleEndian::Reader record(reader.bytes(size));
        const quint8 command = record.uint8();
        if (!reader.isIntact() || !record.isIntact())
            break; // The end, or where the browser is writing.
        replay.apply(command, record);
    }
    if (!replay.hasInitialState())
        return std::nullopt;
    return replay.session();
}

} // namespace ardeno
