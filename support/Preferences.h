// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace ardeno {

// The name and type of one stored setting.
template <typename T>
struct PreferenceKey {
    const char *name;
};

// The application's stored settings: one file in a folder that only the user may enter. Instances for the same folder
// share what they know. A change is written when the event loop is next reached, or with the last instance.
class Preferences final {
public:
    // The folder is created (0700) with the first write. What could not be read is kept, see unreadableNote().
    explicit Preferences(const QString &folder);

    // "$XDG_CONFIG_HOME/Ardeno".
    static QString defaultFolder();

    const QString &folder() const;

    // Absent when the setting is missing or holds another type.
    template <typename T>
    std::optional<T> value(PreferenceKey<T> key) const
    {
        const QVariant stored = read(QString::fromLatin1(key.name));
        if (!stored.isValid() || !stored.canConvert<T>())
            return std::nullopt;
        return stored.value<T>();
    }

    template <typename T>
    void setValue(PreferenceKey<T> key, const T &value)
    {
        write(QString::fromLatin1(key.name), QVariant::fromValue(value));
    }

    template <typename T>
    void remove(PreferenceKey<T> key)
    {
        write(QString::fromLatin1(key.name), {});
    }

    bool contains(const char *name) const { return read(QString::fromLatin1(name)).isValid(); }

    // Writes what is pending; false when the file cannot be written. What is pending then stays so.
    bool synchronise();

    // A sentence when there were settings that could not be read, else empty.
    const QString &unreadableNote() const;
    // Whether there were settings, and all of them could be read.
    bool wereRead() const;
    // Whether there may have been more than these: what could not be read, now or by an earlier start, lies aside.
    bool mayBeMissing() const;

private:
    class State;

    QVariant read(const QString &name) const;
    void write(const QString &name, const QVariant &value);

    std::shared_ptr<State> m_state;
};

} // namespace ardeno
