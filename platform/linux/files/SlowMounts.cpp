// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/files/SlowMounts.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

// For how long the list of mounts is believed.
constexpr auto tableAge = 1s;

constexpr std::array remoteSystems = {"9p",    "afs",  "autofs",  "ceph",      "cifs",   "coda",
                                      "davfs", "fuse", "fuseblk", "gfs2",      "lustre", "ncpfs",
                                      "nfs",   "nfs4", "ocfs2",   "glusterfs", "smb3",   "smbfs"};

bool isBelow(const QByteArray &path, const QByteArray &folder)
{
    return path.startsWith(folder) && (path.size() == folder.size() || folder == "/" || path[folder.size()] == '/');
}

bool mayFail(const QByteArray &system, const QByteArray &point)
{
    const bool isRemote = std::find(remoteSystems.begin(), remoteSystems.end(), system) != remoteSystems.end();
    return isRemote || system.startsWith("fuse.") || isBelow(point, "/media") || isBelow(point, "/run/media") ||
           isBelow(point, "/mnt");
}

// The list writes blanks and the like as "\040".
QByteArray unescapedMount(QByteArray text)
{
    constexpr qsizetype length = 4;
    constexpr int octal = 8;
    for (qsizetype at = text.indexOf('\\'); at >= 0; at = text.indexOf('\\', at + 1))
        text.replace(at, length, QByteArray(1, static_cast<char>(text.mid(at + 1, length - 1).toInt(nullptr, octal))));
    return text;
}

QByteArray mountTable()
{
    QFile file("/proc/self/mountinfo");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool SlowMounts::Visitor::enter(Clock::duration time)
{
    std::unique_lock lock(m_mutex);
    if (m_isThere && !m_hasLeft.wait_until(lock, m_since + time, [this] { return !m_isThere; }))
        return false;
    m_isThere = true;
    m_since = Clock::now();
    return true;
}

void SlowMounts::Visitor::leave()
{
    const std::scoped_lock lock(m_mutex);
    m_isThere = false;
    m_hasLeft.notify_all();
}

SlowMounts::SlowMounts(std::function<QByteArray()> table, QByteArray home)
    : m_table(std::move(table)), m_home(std::move(home))
{
}

SlowMounts &SlowMounts::ofMachine()
{
    // Never destroyed: a thread that was left to itself may come back while the program ends.
    static SlowMounts &mounts = *new SlowMounts(&mountTable, QFile::encodeName(QDir::home().canonicalPath()));
    return mounts;
}

// "36 35 98:0 /root /point options optional… - system source options".
SlowMounts::Mount SlowMounts::parsed(const QByteArray &line)
{
    constexpr qsizetype pointField = 4;
    const QByteArrayList fields = line.split(' ');
    const qsizetype separator = fields.indexOf("-");
    const QByteArray point = unescapedMount(fields.value(pointField));
    return {point, fields.value(0) + ' ' + fields.value(2) + ' ' + point, mayFail(fields.value(separator + 1), point)};
}

void SlowMounts::readTable()
{
    if (m_readAt != Clock::time_point() && Clock::now() - m_readAt < tableAge)
        return;
    m_readAt = Clock::now();
    m_mounts.clear();
    QHash<QByteArray, std::shared_ptr<Visitor>> visitors;
    for (const QByteArray &line : m_table().split('\n')) {
        Mount mount = parsed(line);
        if (mount.point.isEmpty())
            continue;
        mount.isSlow = mount.isSlow && !isBelow(m_home, mount.point);
        if (mount.isSlow)
            visitors.insert(mount.identity, m_visitors.value(mount.identity, std::make_shared<Visitor>()));
        m_mounts.append(std::move(mount));
    }
    m_visitors = visitors;
    // What is mounted later hides what is there. Where nothing is slow, nothing has to be looked up.
    const auto isShorter = [](const Mount &a, const Mount &b) { return a.point.size() < b.point.size(); };
    std::stable_sort(m_mounts.begin(), m_mounts.end(), isShorter);
    if (m_visitors.isEmpty())
        m_mounts.clear();
}

std::shared_ptr<SlowMounts::Visitor> SlowMounts::visitorOf(const QByteArray &path)
{
    const std::scoped_lock lock(m_mutex);
    readTable();
    const auto isIn = [&](const Mount &mount) { return isBelow(path, mount.point); };
    const auto mount = std::find_if(m_mounts.crbegin(), m_mounts.crend(), isIn);
    return mount != m_mounts.crend() && mount->isSlow ? m_visitors.value(mount->identity) : nullptr;
}

} // namespace ardeno
