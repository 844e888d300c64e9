// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/files/PathEntry.h"

#include <QByteArray>
#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <climits>
#include <sys/stat.h>
#include <unistd.h>

namespace ardeno {

namespace {

struct Step {
    PathEntry entry = {};
    QByteArray target = {}; // Of a link.
};

PathFacts::Kind kindOf(mode_t mode)
{
    if (S_ISREG(mode))
        return PathFacts::Kind::File;
    return S_ISDIR(mode) ? PathFacts::Kind::Folder : PathFacts::Kind::Other;
}

// The entry of a folder, a link as the link that it is.
Step stepTo(const QByteArray &path)
{
    struct stat found = {};
    if (::lstat(path.constData(), &found) != 0)
        return {};
    Step step{.entry = {{kindOf(found.st_mode)}, found.st_ino, found.st_dev}};
    if (!S_ISLNK(found.st_mode))
        return step;
    std::array<char, PATH_MAX> text;
    const ssize_t length = ::readlink(path.constData(), text.data(), text.size());
    return length > 0 ? Step{.target = QByteArray(text.data(), length)} : Step();
}

// The way from the root to what a path leads to.
class Walk final {
public:
    Walk(const QString &path, SlowMounts &mounts, std::chrono::milliseconds time)
        : m_path(path), m_mounts(mounts), m_time(time)
    {
    }

    PathEntry end()
    {
        m_here = stepTo("/").entry;
        QByteArray path = m_path.toUtf8();
        if (!path.startsWith('/') || path.contains('\0'))
            return {};
        append(path);
        while (!m_left.isEmpty()) {
            if (!go(m_left.takeLast()))
                return {{m_isSilent ? PathFacts::Kind::Silent : PathFacts::Kind::Missing, m_path}};
        }
        m_here.facts.canonicalPath = m_at.isEmpty() ? u"/"_qs : QString::fromUtf8(m_at);
        return m_here;
    }

private:
    void append(const QByteArray &path)
    {
        const QByteArrayList names = path.split('/');
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            if (!name->isEmpty() && *name != ".")
                m_left.append(*name);
        }
    }

    bool go(const QByteArray &name)
    {
        if (m_here.facts.kind != PathFacts::Kind::Folder)
            return false;
        const qsizetype parent = std::max<qsizetype>(m_at.lastIndexOf('/'), 0);
        const QByteArray next = name == ".." ? m_at.first(parent) : m_at + '/' + name;
        const QByteArray asked = next.isEmpty() ? QByteArray("/") : next;
        const auto step = m_mounts.ask(asked, [asked] { return stepTo(asked); }, m_time);
        m_isSilent = !step;
        if (!step)
            return false;
        if (!step->target.isEmpty())
            return follow(step->target);
        m_at = next;
        m_here = step->entry;
        return m_here.facts.kind != PathFacts::Kind::Missing;
    }

    bool follow(const QByteArray &target)
    {
        constexpr int mostLinks = 40; // As many as the system follows.
        if (target.startsWith('/'))
            m_at.clear();
        append(target);
        return ++m_links <= mostLinks;
    }

    QString m_path;
    SlowMounts &m_mounts;
    std::chrono::milliseconds m_time;
    QByteArray m_at = {}; // Empty: the root.
    PathEntry m_here = {};
    QByteArrayList m_left = {}; // The next name last.
    int m_links = 0;
    bool m_isSilent = false;
};

} // namespace

PathEntry PathEntry::of(const QString &path, SlowMounts &mounts, std::chrono::milliseconds time)
{
    return Walk(path, mounts, time).end();
}

} // namespace ardeno
