// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "json/JsonReader.h"

#include <QByteArrayView>

#include <optional>

namespace ardeno {

// The text that a "mozLz4" file holds, ready to be parsed. Absent when the file is damaged or claims too much.
std::optional<json::PaddedBytes> unpackedMozLz4(QByteArrayView file);

} // namespace ardeno
