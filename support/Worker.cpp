// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Worker.h"

#include "support/Failure.h"

#include <QCoreApplication>

#include <system_error>

namespace ardeno {

std::thread startWorker(std::function<void()> work)
{
    try {
        return std::thread(std::move(work));
    } catch (const std::system_error &error) {
        throw Failure(
            "POSIX", error.code().value(),
            QCoreApplication::translate("ardeno::Worker", "The system lets the program start no more work: %1")
                .arg(Failure::system(error.code().value()).description()));
    }
}

} // namespace ardeno
