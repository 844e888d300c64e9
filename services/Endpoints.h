// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace ardeno {

// The maker's addresses, set when the program is built.
namespace Endpoints {

QUrl updateManifest();
QUrl newsletter();
QString supportAddress(); // Of an e-mail.

} // namespace Endpoints

// What the program says it is.
struct ApplicationBundle {
    QString version = {}; // Empty: it does not know.
    QString build = {};   // The build's number; likewise.

    static ApplicationBundle current();
};

} // namespace ardeno
