// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/files/LinuxFiles.h"

#include "platform/linux/files/PathEntry.h"
#include "platform/linux/files/SlowWork.h"

#include <QFile>

#include <algorithm>
#include <memory>
#include <mutex>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

constexpr auto timeForAll = 5s;
constexpr auto timeForPath = 1s;

// What has been found out is there also when the rest never is.
class PathQuestions final {
public:
    explicit PathQuestions(QStringList paths) : m_paths(std::move(paths))
    {
        for (const QString &path : std::as_const(m_paths))
            m_found.insert(path, {PathFacts::Kind::Silent, path});
    }

    bool answer()
    {
        SlowMounts &mounts = SlowMounts::ofMachine();
        const auto isQuick = [&](const QString &path) { return !mounts.isSlow(QFile::encodeName(path)); };
        std::stable_partition(m_paths.begin(), m_paths.end(), isQuick);
        for (const QString &path : std::as_const(m_paths)) {
            const PathFacts facts = PathEntry::of(path, mounts, timeForPath).facts;
            const std::scoped_lock lock(m_mutex);
            m_found.insert(path, facts);
        }
        return true;
    }

    QHash<QString, PathFacts> found()
    {
        const std::scoped_lock lock(m_mutex);
        return m_found;
    }

private:
    QStringList m_paths; // The worker's.
    std::mutex m_mutex;
    QHash<QString, PathFacts> m_found;
};

} // namespace

QCoro::Task<QHash<QString, PathFacts>> LinuxFiles::facts(QStringList paths)
{
    paths.removeDuplicates();
    if (paths.isEmpty())
        co_return {};
    const auto questions = std::make_shared<PathQuestions>(std::move(paths));
    const auto work = [questions] { return questions->answer(); };
    try {
        co_await SlowWork::withinDeadline(work, timeForAll, SlowWork::Kind::Files);
    } catch (const Failure &) {
        // A disk did not answer; what others said is there.
    }
    co_return questions->found();
}

} // namespace ardeno
