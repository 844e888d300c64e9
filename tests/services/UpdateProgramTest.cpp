// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/UpdateProgram.h"
#include "support/BlockOn.h"
#include "tests/Printing.h"

#include <QFile>
#include <QTemporaryDir>

using namespace ardeno;

namespace {

struct Program {
    QTemporaryDir folder;
    QString path = folder.filePath("updates");

    explicit Program(const QByteArray &script, const QByteArray &interpreter = "/bin/sh")
    {
        QFile file(path);
        REQUIRE(file.open(QIODevice::WriteOnly));
        file.write("#!" + interpreter + '\n' + script + "\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }
};

std::optional<AppUpdateManifest> printedBy(const QByteArray &script, std::chrono::milliseconds patience)
{
    const Program program(script);
    return blockOn(UpdateProgram::fetch(program.path, patience)());
}

} // namespace

TEST_CASE("the manifest is what the program prints, and only when it ends well and in time")
{
    using namespace std::chrono_literals;
    const QByteArray manifest = R"({"latestVersion": "9.1", "releaseNotes": ["Faster"]})";
    const QByteArray print = "printf '%s' '" + manifest + "'\n";
    REQUIRE(printedBy(print, 60s));
    CHECK(printedBy(print, 60s)->latestVersion == "9.1");
    CHECK_FALSE(printedBy(print + "exit 1", 60s));
    CHECK_FALSE(printedBy(print + "kill -9 $$", 60s));
    CHECK_FALSE(printedBy("echo no manifest", 60s));
    CHECK_FALSE(printedBy(print + "exec sleep 600", 300ms));
    const Program broken({}, "/nowhere/at/all");
    CHECK_FALSE(blockOn(UpdateProgram::fetch(broken.path, 60s)()));
    CHECK_FALSE(UpdateProgram::fetch(broken.path + "-missing"));
}
