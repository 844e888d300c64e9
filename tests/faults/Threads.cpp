// SPDX-License-Identifier: GPL-3.0-or-later
// Stands before the system's library, as the calls for files do.
#include "tests/faults/Faults.h"

#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>

namespace ardeno::faults {

namespace {

std::atomic<bool> hasThreads = true;

} // namespace

void setThreads(bool available)
{
    hasThreads = available;
}

} // namespace ardeno::faults

extern "C" int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*work)(void *),
                              void *argument) noexcept
{
    if (!ardeno::faults::hasThreads)
        return EAGAIN;
    using Create = int (*)(pthread_t *, const pthread_attr_t *, void *(*)(void *), void *);
    static const auto create = reinterpret_cast<Create>(::dlsym(RTLD_NEXT, "pthread_create"));
    return create(thread, attributes, work, argument);
}
