// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryFile.h"

#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

namespace ardeno {

namespace {

// The version of the format; a newer one ends the reading at once, whatever else the file holds.
struct FormatVersion {
    qint64 number = 0;
};

Failure failure(LibraryFailure reason, const QString &description)
{
    return {"Library", static_cast<int>(reason), description};
}

void read(json::Reader &reader, FormatVersion &version)
{
    json::read(reader, version.number);
    if (version.number > WorkspaceLibrary::currentVersion)
        throw failure(LibraryFailure::Newer,
                      u"The library was written by a newer version of the program (format %1)."
                      u" It has been left as it is; update the program to use it."_qs.arg(version.number));
}

} // namespace

template <>
struct json::Need<FormatVersion> : Need<qint64> {};

namespace {

// The root of the file, with the bytes of every checkpoint.
struct StoredLibrary {
    FormatVersion version = {};
    QList<Project> projects = {};
    QList<json::Verbatim<Checkpoint>> checkpoints = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"version", &StoredLibrary::version},
            Field{"projects", &StoredLibrary::projects},
            Field{"checkpoints", &StoredLibrary::checkpoints},
        };
    }
};

bool isLink(const QString &path)
{
    struct stat status;
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

QString nameOf(const QString &path)
{
    return path.sliced(path.lastIndexOf('/') + 1);
}

// No descriptor when there is no file.
FileDescriptor openLibrary(const QString &path)
{
    FileDescriptor file = OwnFile::open(path, O_RDONLY, OwnFile::Links::Followed);
    if (!file && isLink(path))
        throw failure(LibraryFailure::DanglingLink,
                      u"“%1” is a link to a file that is not there."_qs.arg(nameOf(path)));
    return file;
}

std::shared_ptr<const json::PaddedBytes> readAll(const FileDescriptor &file, qint64 size, const QString &path)
{
    const auto bytes = std::make_shared<json::PaddedBytes>(size);
    for (qint64 done = 0; done < size;) {
        const auto rest = static_cast<size_t>(size - done);
        const ssize_t got = uninterrupted([&] { return ::read(file.number(), bytes->data() + done, rest); });
        if (got < 0)
            throw Failure::system(errno, nameOf(path));
        if (got == 0)
            throw failure(LibraryFailure::Changed, u"“%1” became shorter while it was read."_qs.arg(nameOf(path)));
        done += got;
    }
    return bytes;
}

// What the first byte that is not white space says; absent when there is none.
std::optional<bool> isLegacyStart(QByteArrayView bytes)
{
    const auto isContent = [](char byte) { return byte != '\t' && byte != '\n' && byte != '\r' && byte != ' '; };
    const auto first = std::find_if(bytes.begin(), bytes.end(), isContent);
    return first == bytes.end() ? std::nullopt : std::optional(*first == '[');
}

// The version alone, wherever it stands in the file.
struct VersionedLibrary {
    FormatVersion version = {};

    static constexpr auto fields() { return std::tuple{Field{"version", &VersionedLibrary::version}}; }
};

// What could not be decoded may be of a newer version, whose keys need not have the order of this one's.
void refuseNewer(const json::PaddedBytes &bytes)
{
    try {
        json::decode<VersionedLibrary>(bytes);
    } catch (const Failure &problem) {
        if (problem.domain() == "Library")
            throw;
    }
}

bool isMerged(const Checkpoint &checkpoint)
{
    return QStringView(checkpoint.decision).trimmed().isEmpty();
}

LibraryFile decode(const std::shared_ptr<const json::PaddedBytes> &bytes)
{
    LibraryFile file;
    file.isLegacy = isLegacyStart(bytes->view()).value_or(false);
    if (file.isLegacy) {
        file.checkpoints = {json::decode<EncodedCheckpoints::ReadCheckpoints>(*bytes), bytes};
        return file;
    }
    auto stored = json::decode<StoredLibrary>(*bytes);
    file.projects = std::move(stored.projects);
    file.checkpoints = {std::move(stored.checkpoints), bytes};
    const QList<Checkpoint> &records = file.checkpoints.records();
    file.hasDecision = !std::all_of(records.begin(), records.end(), isMerged);
    return file;
}

} // namespace

std::optional<LibraryFile> LibraryFile::read(const QString &path)
{
    const FileDescriptor descriptor = openLibrary(path);
    if (!descriptor)
        return std::nullopt;
    const FileStamp stamp = FileStamp::ofDescriptor(descriptor.number());
    if (stamp.size > largest)
        throw failure(LibraryFailure::TooLarge,
                      u"“%1” is larger than 1 GiB, more than a library can be."_qs.arg(nameOf(path)));
    const auto bytes = readAll(descriptor, stamp.size, path);
    try {
        LibraryFile file = decode(bytes);
        file.stamp = stamp;
        return file;
    } catch (const Failure &problem) {
        if (problem.domain() == "Library")
            throw;
        refuseNewer(*bytes);
        throw failure(LibraryFailure::Damaged, u"“%1” is damaged. %2"_qs.arg(nameOf(path), problem.description()));
    }
}

bool LibraryFile::startsAsLegacy(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    constexpr qint64 blockSize = 64 * 1024;
    while (true) {
        const QByteArray block = file.read(blockSize);
        const std::optional<bool> isLegacy = isLegacyStart(block);
        if (isLegacy || block.isEmpty())
            return isLegacy.value_or(false);
    }
}

bool LibraryFile::write(const QString &path, const std::function<void()> &check)
{
    QByteArray head = "{\"version\":" + QByteArray::number(WorkspaceLibrary::currentVersion) + ",\"projects\":";
    json::append(head, projects);
    head += ",\"checkpoints\":[";
    std::vector<QByteArrayView> pieces = {head};
    checkpoints.appendTo(pieces);
    pieces.emplace_back("]}");
    const AtomicFile::Written written = AtomicFile::write(path, pieces, check);
    stamp = written.stamp;
    return written.isDurable;
}

} // namespace ardeno
