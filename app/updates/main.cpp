// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/Endpoints.h"
#include "services/network/UpdateFetch.h"
#include "support/BlockOn.h"

#include <QCoreApplication>

#include <cstdio>

// Prints the maker's manifest as it came. Exit status 1: it could not be had.
int main(int argc, char **argv)
{
    using namespace ardeno;
    const QCoreApplication application(argc, argv);
    const std::optional<QByteArray> manifest = blockOn(fetchManifest({.manifest = Endpoints::updateManifest()}));
    if (!manifest)
        return 1;
    const std::size_t size = manifest->size();
    return std::fwrite(manifest->constData(), 1, size, stdout) == size && std::fflush(stdout) == 0 ? 0 : 1;
}
