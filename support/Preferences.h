// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>
#include <QString>

#include <memory>
#include <optional>

namespace ardeno {

// The name and type of one stored setting.
template <typename T>
struct PreferenceKey {
    const char *name;
};

// The application's stored settings: one file in a folder that only the user may enter.
class Preferences final {
public:
    // The folder is created (0700) with the first write. What could not be read is kept beside the settings before
    // anything is written, see unreadableNote().
    explicit Preferences(const QString &folder);

    // "$XDG_CONFIG_HOME/Ardeno".
    static QString defaultFolder();

    // Absent when the setting is missing or holds another type.
    template <typename T>
    std::optional<T> value(PreferenceKey<T> key) const
    {
        const QVariant stored = m_settings->value(QString::fromLatin1(key.name));
        if (!stored.isValid() || !stored.canConvert<T>())
            return std::nullopt;
        return stored.value<T>();
    }

    template <typename T>
    void setValue(PreferenceKey<T> key, const T &value)
    {
        write(key.name, QVariant::fromValue(value));
    }

    template <typename T>
    void remove(PreferenceKey<T> key)
    {
        write(key.name, {});
    }

    bool contains(const char *name) const { return m_settings->contains(QString::fromLatin1(name)); }

    // Writes what is pending; false when the file cannot be written.
    bool synchronise();

    // A sentence when the file existed and could not be read, else empty.
    const QString &unreadableNote() const { return m_unreadableNote; }

private:
    bool isUnlocked() const;
    void write(const char *name, const QVariant &value);

    QString m_folder;
    QString m_unreadableNote;
    std::unique_ptr<QSettings> m_settings;
};

} // namespace ardeno
