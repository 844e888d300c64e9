// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Picture.h"

#include <QSet>
#include <QString>

#include <functional>
#include <memory>

namespace ardeno {

// A picture made small.
struct Thumbnail {
    enum class State {
        Ready,
        Missing,    // There is no such file.
        Unreadable, // The file is no picture, or damaged.
        Dropped,    // Too many others were asked for since; ask again when it is still wanted.
    };

    State state = State::Missing;
    Picture picture = {}; // At most Thumbnails::longestSide pixels on the longer side, never enlarged.

    bool operator==(const Thumbnail &) const = default;
};

// Makes pictures small on a thread of its own, the newest request first, and keeps what it made in a folder that the
// user alone may enter. Used on one thread, which is the one that gets the answers.
class Thumbnails final {
    struct Queue;

public:
    static constexpr int longestSide = 256;
    static constexpr qsizetype mostWaiting = 512; // Beyond it the oldest request is dropped.

    // One question; the answer is not given once this has gone.
    class Request final {
    public:
        Request() = default;

    private:
        friend Thumbnails;
        std::shared_ptr<void> m_pending = {};
    };

    using Answer = std::function<void(const Thumbnail &)>;

    // The folder is created when the first picture is kept.
    explicit Thumbnails(QString folder);
    ~Thumbnails();
    Thumbnails(const Thumbnails &) = delete;
    Thumbnails &operator=(const Thumbnails &) = delete;

    // "$XDG_CACHE_HOME/Ardeno/thumbnails".
    static QString defaultFolder();

    // Answers from the event loop, never within the call.
    [[nodiscard]] Request request(const QString &path, Answer answer);

    // Removes what is kept of these pictures: what the user deletes must not live on here.
    void forget(const QSet<QString> &paths);
    // The same for all pictures but these, on the worker.
    void keepOnly(const QSet<QString> &paths);

private:
    void wake();

    std::unique_ptr<Queue> m_queue;
};

} // namespace ardeno
