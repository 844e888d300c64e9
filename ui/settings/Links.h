// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

#include <optional>

// What the program opens outside of itself.
namespace ardeno::Links {

// A link of an update manifest; does nothing unless it is https.
void openUpdateURL(const std::optional<QUrl> &url);

void openNewsletter();

// In the file browser. False when there is none.
bool openFolder(const QString &path);

// False when the text did not get there: another program took the clipboard at once.
bool copyToClipboard(const QString &text);

} // namespace ardeno::Links
