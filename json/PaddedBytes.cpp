// SPDX-License-Identifier: GPL-3.0-or-later
#include "json/PaddedBytes.h"

#include <simdjson.h>

#include <cstring>

namespace ardeno::json {

PaddedBytes::PaddedBytes(qsizetype size)
    : m_bytes(std::make_unique_for_overwrite<char[]>(static_cast<size_t>(size) + simdjson::SIMDJSON_PADDING)),
      m_size(size)
{
    std::memset(m_bytes.get() + size, 0, simdjson::SIMDJSON_PADDING);
}

} // namespace ardeno::json
