// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaObject>
#include <QObject>
#include <QProperty>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace ardeno {

// A value that can be read and watched. Main thread only.
template <typename T>
class Observable {
public:
    explicit Observable(T value = {}) : m_box(Box{std::move(value), 0}) {}

    Observable(const Observable &) = delete;
    Observable &operator=(const Observable &) = delete;

    const T &operator()() const { return m_box.value().value; }

    // The handler runs after every change for as long as the result lives; it must not set this property.
    template <typename Handler>
    [[nodiscard]] QPropertyNotifier addNotifier(Handler handler) const
    {
        return m_box.addNotifier(std::move(handler));
    }

protected:
    // Equal values are silent.
    void assign(T value)
    {
        if (!(value == (*this)()))
            replace(std::move(value));
    }

    // Notifies without comparing: for large lists that the caller knows to have changed.
    void replace(T value) { m_box = Box{std::move(value), m_box.value().revision + 1}; }

private:
    // Compared by revision, so that a notification never compares a large value.
    struct Box {
        T value = {};
        quint64 revision = 0;

        bool operator==(const Box &other) const { return revision == other.revision; }
    };

    mutable QProperty<Box> m_box; // Watching does not change the value.
};

// A property that only its owner writes.
template <typename T, typename Owner>
class PublishedBy final : public Observable<T> {
public:
    using Observable<T>::Observable;

private:
    friend Owner;

    void set(T value) { this->assign(std::move(value)); }

    void publish(T value) { this->replace(std::move(value)); }
};

// While it lives, no watcher hears of a change; at the end of the outermost one each hears of all together.
class PublishTogether final {
public:
    PublishTogether() { Qt::beginPropertyUpdateGroup(); }

    ~PublishTogether() { Qt::endPropertyUpdateGroup(); }

    PublishTogether(const PublishTogether &) = delete;
    PublishTogether &operator=(const PublishTogether &) = delete;
};

// The subscriptions of one view; they end with it.
class Subscriptions final {
public:
    // Calls the handler once now and once per turn of the event loop in which any of the properties changed.
    template <typename... Properties>
    void watch(std::function<void()> handler, const Properties &...properties)
    {
        handler();
        // The queued call holds the state weakly: it is dropped when the view is gone by then.
        auto state = std::make_shared<Watch>(std::move(handler));
        const auto changed = [this, weak = std::weak_ptr(state)] { schedule(weak); };
        (state->notifiers.push_back(properties.addNotifier(changed)), ...);
        m_watches.push_back(std::move(state));
    }

private:
    struct Watch {
        explicit Watch(std::function<void()> function) : handler(std::move(function)) {}

        std::function<void()> handler;
        std::vector<QPropertyNotifier> notifiers = {};
        bool isScheduled = false;
    };

    void schedule(const std::weak_ptr<Watch> &weak)
    {
        const auto watch = weak.lock();
        if (!watch || std::exchange(watch->isScheduled, true))
            return;
        const auto deliver = [weak] {
            if (const auto due = weak.lock()) {
                due->isScheduled = false;
                due->handler();
            }
        };
        QMetaObject::invokeMethod(&m_context, deliver, Qt::QueuedConnection);
    }

    QObject m_context;
    std::vector<std::shared_ptr<Watch>> m_watches;
};

} // namespace ardeno
