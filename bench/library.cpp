// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/Bench.h"
#include "bench/libraryPeer.h"
#include "bench/librarySamples.h"
#include "model/CheckpointRepository.h"
#include "support/FileDescriptor.h"
#include "json/Json.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>

#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>

using namespace ardeno;
using namespace ardeno::bench;

namespace {

constexpr int checkpointCount = 10'000;
constexpr int rounds = 7;

void require(bool condition, const char *what)
{
    if (!condition)
        throw std::runtime_error(what);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "the library cannot be read");
    return file.readAll();
}

// What any crash-safe save has to do: write, synchronise, rename, synchronise the folder.
void writeAsFastAsPossible(const QString &folder, const QByteArray &bytes)
{
    const QByteArray path = QFile::encodeName(folder + "/limit.json");
    const QByteArray temporary = path + ".new";
    const FileDescriptor file(::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    require(static_cast<bool>(file), "the limit cannot be written");
    const char *rest = bytes.constData();
    const char *end = rest + bytes.size();
    while (rest != end) {
        const ssize_t written = ::write(file.number(), rest, static_cast<size_t>(end - rest));
        require(written > 0, "the limit cannot be written");
        rest += written;
    }
    const FileDescriptor parent(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    require(static_cast<bool>(parent), "the folder cannot be opened");
    require(::fdatasync(file.number()) == 0 && ::rename(temporary.constData(), path.constData()) == 0 &&
                ::fsync(parent.number()) == 0,
            "the limit cannot be finished");
}

void measureMemory(Table &table, const CheckpointRepository &repository)
{
    const auto size = static_cast<double>(QFile(repository.root() + "/checkpoints.json").size());
    const double peak = peakMemoryOf([&] {
        const WorkspaceLibrary library = repository.loadLibrary();
        require(library.checkpoints.size() == checkpointCount, "the library is incomplete");
    });
    table.add("peak memory of loading", megabytes(peak), "the file, " + megabytes(size), peak / size, 3.8);
}

void measureLoading(Table &table, const QString &root)
{
    const QString path = root + "/checkpoints.json";
    WorkspaceLibrary ours;
    WorkspaceLibrary theirs;
    std::optional<CheckpointRepository> repository;
    const auto load = [&] { ours = repository.emplace(root).loadLibrary(); };
    const auto loadPeer = [&] { theirs = peer::decode<WorkspaceLibrary>(contentOf(path)); };
    const auto drop = [&] {
        ours = theirs = {};
        repository.reset();
    };
    const auto seconds = interleavedMedians(rounds, {load, loadPeer}, drop);
    load();
    require(ours == theirs && ours.checkpoints.size() == checkpointCount, "the two readers disagree");
    table.add("loading 10,000 checkpoints", milliseconds(seconds[0]), "QJsonDocument, " + milliseconds(seconds[1]),
              seconds[0] / seconds[1], 0.30);
}

void measureEncoding(Table &table, const WorkspaceLibrary &library)
{
    QByteArray ours;
    QByteArray theirs;
    const auto encode = [&] {
        ours.resize(0); // Keeps its room.
        json::append(ours, library);
    };
    const auto encodePeer = [&] { theirs = peer::encode(library); };
    const auto seconds = interleavedMedians(3, {encode, encodePeer});
    require(peer::decode<WorkspaceLibrary>(ours) == library, "the peer reads something else");
    table.add("encoding 10,000 checkpoints", milliseconds(seconds[0]), "QJsonDocument, " + milliseconds(seconds[1]),
              seconds[0] / seconds[1], 0.08);
}

void measureSaving(Table &table, const CheckpointRepository &repository)
{
    WorkspaceLibrary library = repository.loadLibrary();
    const QByteArray bytes = contentOf(repository.root() + "/checkpoints.json");
    int number = 0;
    const auto save = [&] {
        library.checkpoints[(number * 997) % checkpointCount].title = QString::number(number);
        ++number;
        repository.saveLibrary(library);
    };
    const auto limit = [&] { writeAsFastAsPossible(repository.root(), bytes); };
    const auto seconds = interleavedMedians(2 * rounds + 1, {save, limit});
    require(CheckpointRepository(repository.root()).loadLibrary() == library, "what was saved is something else");
    table.add("saving with one changed of 10,000", milliseconds(seconds[0]),
              "only writing, " + milliseconds(seconds[1]), seconds[0] / seconds[1], 1.3);
}

} // namespace

int main(int argc, char **argv)
try {
    // On the disk that is to be measured: a folder as argument, or the current one.
    const QTemporaryDir folder(QString(argc > 1 ? argv[1] : ".") + "/bench-library-XXXXXX");
    require(folder.isValid(), "no folder to write to");
    const CheckpointRepository repository(folder.path());
    inChild([&] { repository.saveLibrary(sampleLibrary(checkpointCount)); });

    Table table;
    measureMemory(table, repository);
    measureLoading(table, folder.path());
    measureEncoding(table, repository.loadLibrary());
    measureSaving(table, repository);
    return table.finish();
} catch (const std::exception &problem) {
    std::fprintf(stderr, "bench_library: %s\n", problem.what());
    return 2;
}
