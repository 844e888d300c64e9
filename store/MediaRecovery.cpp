// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/MediaRecovery.h"

#include "store/MediaFolders.h"
#include "store/MediaStaging.h"
#include "store/SessionJournal.h"
#include "support/AtomicFile.h"

#include <QDir>
#include <QHash>

#include <algorithm>

namespace ardeno {

namespace {

class Recovery final {
public:
    Recovery(const QString &root, const QList<Checkpoint> *library) : m_root(root), m_library(library) {}

    QSet<QUuid> run()
    {
        const QStringList names = namesInRoot();
        removeUnfinished(m_root, names);
        for (const QString &name : names) {
            try {
                resolve(name);
            } catch (const Failure &) {
                // What does not answer stays for the next time.
            }
        }
        return m_sessions;
    }

private:
    QStringList namesInRoot() const
    {
        try {
            return MediaFolders::entries(m_root);
        } catch (const Failure &) {
            return {};
        }
    }

    void resolve(const QString &name)
    {
        if (const QUuid own = MediaFolders::idOfOwn(name); !own.isNull())
            resolveOwn(own);
        else if (m_library && MediaStaging::isName(name))
            resolveDeletion(m_root + '/' + name);
        else if (const QUuid id = MediaFolders::idOfUnsaved(name); m_library && !id.isNull())
            resolveUnsaved(id);
    }

    // Null when the library does not know it. Most starts never ask.
    const Checkpoint *checkpoint(const QUuid &id)
    {
        if (m_checkpoints.isEmpty() && m_library) {
            for (const Checkpoint &record : *m_library)
                m_checkpoints.insert(record.id, &record);
        }
        return m_checkpoints.value(id);
    }

    void resolveDeletion(const QString &staging)
    {
        if (!MediaFolders::isFolder(staging))
            return;
        for (const QString &name : MediaFolders::entries(staging)) {
            const QUuid id = MediaFolders::idOfOwn(name);
            const QString media = staging + '/' + name;
            if (id.isNull() || !MediaFolders::isFolder(media))
                continue;
            if (!checkpoint(id))
                MediaFolders::removeAll(media);
            else if (!MediaFolders::move(media, m_root + '/' + name))
                resolveOwn(id);
        }
        QDir().rmdir(staging);
    }

    void resolveUnsaved(const QUuid &id)
    {
        const QString media = MediaFolders::unsaved(m_root, id);
        if (!MediaFolders::isFolder(media))
            return;
        if (!checkpoint(id) && !SessionJournal::isIn(media))
            MediaFolders::removeAll(media);
        else if (!MediaFolders::move(media, MediaFolders::own(m_root, id)))
            resolveOwn(id);
    }

    void resolveOwn(const QUuid &id)
    {
        const QString folder = MediaFolders::own(m_root, id);
        if (!MediaFolders::isFolder(folder))
            return;
        const QStringList names = MediaFolders::entries(folder);
        removeUnfinished(folder, names);
        if (SessionJournal::isIn(folder))
            m_sessions.insert(id);
        for (const QString &name : names)
            resolveFile(id, name);
    }

    // A file on its way into the checkpoint or out of it.
    void resolveFile(const QUuid &id, const QString &name)
    {
        const QString path = MediaFolders::own(m_root, id) + '/' + name;
        const std::optional<QString> settled = MediaFolders::settled(path);
        const Checkpoint *const owner = settled && MediaFolders::isFile(path) ? checkpoint(id) : nullptr;
        if (!owner)
            return;
        const auto isNamedBy = [&](const std::optional<QString> &recorded) {
            return recorded && MediaFolders::fileOf(m_root, id, *recorded) == settled;
        };
        if (isNamedBy(owner->screenshot) || isNamedBy(owner->recording))
            MediaFolders::move(path, *settled);
        else
            MediaFolders::removeAll(path);
    }

    static void removeUnfinished(const QString &folder, const QStringList &names)
    {
        if (std::any_of(names.begin(), names.end(), [](const QString &name) { return name.endsWith(".writing"); }))
            AtomicFile::removeLeftovers(folder);
    }

    QString m_root;
    const QList<Checkpoint> *m_library;
    QHash<QUuid, const Checkpoint *> m_checkpoints = {};
    QSet<QUuid> m_sessions = {};
};

} // namespace

QSet<QUuid> MediaRecovery::resolve(const QString &root, const QList<Checkpoint> *library)
{
    return Recovery(root, library).run();
}

} // namespace ardeno
