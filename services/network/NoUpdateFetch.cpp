// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/network/UpdateFetch.h"

namespace ardeno {

UpdateFetch makeUpdateFetch(const UpdateFetchOptions &)
{
    return {};
}

} // namespace ardeno
