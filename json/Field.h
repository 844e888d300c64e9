// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace ardeno {

// One entry of a record's field table: the JSON key and the member that holds its value.
template <typename Record, typename Value>
struct Field {
    const char *name;
    Value Record::*member;
};

// A record names its fields once, in the order in which they are written. The table drives the reader, the writer and
// the messages. A field of type std::optional may be missing or null; every other one is required.
template <typename T>
concept JsonRecord = requires { T::fields(); };

} // namespace ardeno
