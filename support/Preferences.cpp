// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Preferences.h"

#include "support/Failure.h"
#include "support/PreferencesFile.h"

#include <QCoreApplication>
#include <QHash>
#include <QStandardPaths>

#include <utility>

namespace ardeno {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("ardeno::Preferences", text);
}

} // namespace

// The settings of one folder, with the changes that have yet to be written.
class Preferences::State final : public std::enable_shared_from_this<State> {
public:
    explicit State(const QString &folder) : m_file(folder) { readFirst(); }

    State(const State &) = delete;
    State &operator=(const State &) = delete;

    ~State() { flush(); }

    static std::shared_ptr<State> of(const QString &folder)
    {
        static QHash<QString, std::weak_ptr<State>> states;
        std::shared_ptr<State> state = states.value(folder).lock();
        if (!state) {
            state = std::make_shared<State>(folder);
            states.insert(folder, state);
        }
        return state;
    }

    const PreferencesFile &file() const { return m_file; }

    const QString &note() const { return m_note; }

    bool wereRead() const { return m_wereRead; }

    QVariant value(const QString &name) const
    {
        const auto pending = m_pending.constFind(name);
        return pending == m_pending.constEnd() ? m_values.value(name) : *pending;
    }

    void change(const QString &name, const QVariant &value)
    {
        if (this->value(name) == value)
            return;
        m_pending.insert(name, value);
        if (std::exchange(m_isFlushing, true) || !QCoreApplication::instance())
            return;
        const std::weak_ptr<State> self = weak_from_this();
        const auto later = [self] {
            if (const auto state = self.lock())
                state->flush();
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), later, Qt::QueuedConnection);
    }

    bool flush()
    {
        m_isFlushing = false;
        if (m_pending.isEmpty())
            return true;
        if (m_isLeftAlone)
            return false;
        try {
            m_values = m_file.write(m_pending);
            m_pending.clear();
            return true;
        } catch (const Failure &) {
            return false; // The next change tries it again.
        }
    }

private:
    void readFirst()
    {
        try {
            const std::optional<QVariantMap> stored = m_file.read();
            m_wereRead = stored.has_value();
            m_values = stored.value_or(QVariantMap());
        } catch (const Failure &failure) {
            const auto kept = failure.domain() == "Settings" ? m_file.moveAside() : std::nullopt;
            m_isLeftAlone = !kept;
            m_note = kept ? translated("Your settings could not be read (%1). They have been kept as %2.")
                                .arg(failure.description(), *kept)
                          : translated("Your settings could not be read (%1). They are left as they are, and changes "
                                       "to them are not kept.")
                                .arg(failure.description());
        }
    }

    PreferencesFile m_file;
    QVariantMap m_values;
    QVariantMap m_pending; // Invalid: to be removed.
    QString m_note;
    bool m_wereRead = false;
    bool m_isLeftAlone = false; // What stands there is neither known nor out of the way.
    bool m_isFlushing = false;  // Will be, when the event loop is reached.
};

Preferences::Preferences(const QString &folder) : m_state(State::of(folder)) {}

QString Preferences::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/Ardeno"_qs;
}

const QString &Preferences::folder() const
{
    return m_state->file().folder();
}

bool Preferences::synchronise()
{
    return m_state->flush();
}

const QString &Preferences::unreadableNote() const
{
    return m_state->note();
}

bool Preferences::wereRead() const
{
    return m_state->wereRead();
}

bool Preferences::mayBeMissing() const
{
    return !unreadableNote().isEmpty() || m_state->file().hasMovedAside();
}

QVariant Preferences::read(const QString &name) const
{
    return m_state->value(name);
}

void Preferences::write(const QString &name, const QVariant &value)
{
    m_state->change(name, value);
}

} // namespace ardeno
