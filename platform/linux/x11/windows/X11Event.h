// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace ardeno {

// What kind of event it is, whether the server sent it or another client did.
constexpr uint8_t eventType(const xcb_generic_event_t &event)
{
    constexpr uint8_t withoutSendFlag = 0x7f;
    return event.response_type & withoutSendFlag;
}

} // namespace ardeno
