// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Thumbnails.h"

#include "media/PictureFile.h"
#include "media/ThumbnailCache.h"
#include "support/Failure.h"
#include "support/Worker.h"

#include <QMetaObject>
#include <QObject>
#include <QStandardPaths>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>
#include <optional>
#include <thread>
#include <utility>

namespace ardeno {

namespace {

// What a request holds, and what ends with it. Only the asking thread takes hold of it.
struct Pending {
    Thumbnails::Answer answer;
};

struct Job {
    QString path = {};
    std::weak_ptr<Pending> pending = {};
};

} // namespace

// What the asking thread and the worker share.
struct Thumbnails::Queue {
    explicit Queue(QString folder) : cache(std::move(folder)) {}

    void work();
    void workOnNewest(std::unique_lock<std::mutex> &lock);
    std::optional<Thumbnail> made(const Job &job, std::optional<FileStamp> *fresh);
    void post(const Job &job, Thumbnail thumbnail);

    ThumbnailCache cache;
    QObject asking; // Lives in the asking thread and gets the answers.
    std::mutex mutex = {};
    std::condition_variable changed = {};
    std::deque<Job> jobs = {}; // The newest first. This and what follows under the mutex.
    std::optional<QSet<QString>> keptPaths = {};
    QString current = {};
    bool isForgotten = false; // The picture that the worker reads.
    std::atomic<bool> isEnding = false;
    std::thread worker = {};
};

// Absent when the answer is not wanted any more. A stamp says that it was not in the cache.
std::optional<Thumbnail> Thumbnails::Queue::made(const Job &job, std::optional<FileStamp> *fresh)
{
    const auto isWanted = [&] { return !isEnding && !job.pending.expired(); };
    try {
        std::optional<PictureFile> file = PictureFile::opened(job.path);
        if (!file) {
            cache.remove({job.path});
            return Thumbnail{Thumbnail::State::Missing};
        }
        const FileStamp stamp = file->stamp();
        std::optional<Picture> picture = cache.find(job.path, stamp);
        if (!picture) {
            *fresh = stamp;
            picture = file->shrunken(longestSide, isWanted);
        }
        if (picture)
            return Thumbnail{Thumbnail::State::Ready, std::move(*picture)};
    } catch (const Failure &) {
        if (isWanted())
            return Thumbnail{Thumbnail::State::Unreadable};
    } catch (const std::bad_alloc &) {
        return Thumbnail{Thumbnail::State::Unreadable};
    }
    return std::nullopt;
}

void Thumbnails::Queue::work()
{
    std::unique_lock lock(mutex);
    while (true) {
        changed.wait(lock, [this] { return isEnding || keptPaths || !jobs.empty(); });
        if (isEnding)
            return;
        if (const auto kept = std::exchange(keptPaths, std::nullopt))
            cache.keepOnly(*kept);
        if (!jobs.empty())
            workOnNewest(lock);
    }
}

// The lock is held, but not while a picture is read.
void Thumbnails::Queue::workOnNewest(std::unique_lock<std::mutex> &lock)
{
    const Job job = std::move(jobs.front());
    jobs.pop_front();
    if (job.pending.expired())
        return;
    current = job.path;
    isForgotten = false;
    lock.unlock();
    std::optional<FileStamp> fresh;
    std::optional<Thumbnail> thumbnail = made(job, &fresh);
    lock.lock();
    if (isForgotten)
        thumbnail = Thumbnail{Thumbnail::State::Missing};
    else if (fresh && thumbnail && thumbnail->state == Thumbnail::State::Ready)
        cache.keep(job.path, *fresh, thumbnail->picture);
    current.clear();
    if (thumbnail)
        post(job, std::move(*thumbnail));
}

void Thumbnails::Queue::post(const Job &job, Thumbnail thumbnail)
{
    const auto deliver = [pending = job.pending, thumbnail = std::move(thumbnail)] {
        if (const std::shared_ptr<Pending> wanted = pending.lock())
            wanted->answer(thumbnail);
    };
    QMetaObject::invokeMethod(&asking, deliver, Qt::QueuedConnection);
}

Thumbnails::Thumbnails(QString folder) : m_queue(std::make_unique<Queue>(std::move(folder))) {}

Thumbnails::~Thumbnails()
{
    {
        const std::scoped_lock lock(m_queue->mutex);
        m_queue->isEnding = true;
    }
    m_queue->changed.notify_one();
    if (m_queue->worker.joinable())
        m_queue->worker.join();
}

QString Thumbnails::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/Ardeno/thumbnails";
}

Thumbnails::Request Thumbnails::request(const QString &path, Answer answer)
{
    const auto pending = std::make_shared<Pending>(Pending{std::move(answer)});
    Request request;
    request.m_pending = pending;
    const std::scoped_lock lock(m_queue->mutex);
    std::deque<Job> &jobs = m_queue->jobs;
    jobs.push_front({path, pending});
    if (qsizetype(jobs.size()) > mostWaiting)
        std::erase_if(jobs, [](const Job &job) { return job.pending.expired(); });
    if (qsizetype(jobs.size()) > mostWaiting) {
        m_queue->post(jobs.back(), Thumbnail{Thumbnail::State::Dropped});
        jobs.pop_back();
    }
    wake();
    return request;
}

void Thumbnails::forget(const QSet<QString> &paths)
{
    const std::scoped_lock lock(m_queue->mutex);
    m_queue->isForgotten = m_queue->isForgotten || paths.contains(m_queue->current);
    m_queue->cache.remove(paths);
}

void Thumbnails::keepOnly(const QSet<QString> &paths)
{
    const std::scoped_lock lock(m_queue->mutex);
    m_queue->keptPaths = paths;
    wake();
}

// The mutex is held.
void Thumbnails::wake()
{
    try {
        if (!m_queue->worker.joinable())
            m_queue->worker = startWorker([queue = m_queue.get()] { queue->work(); });
    } catch (const Failure &) {
        for (const Job &job : std::exchange(m_queue->jobs, {}))
            m_queue->post(job, Thumbnail{Thumbnail::State::Dropped});
    }
    m_queue->changed.notify_one();
}

} // namespace ardeno
