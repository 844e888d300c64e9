// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace ardeno {

// What a monitor says about itself.
namespace Edid {

// "DELL U2715H"; empty when the block is damaged or names no model.
QString modelName(const QByteArray &edid);

} // namespace Edid

} // namespace ardeno
