// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace ardeno {

// The address of a page on the web, taken apart as browsers do: what they open is an address here, too. Its parts are
// as they were written unless said otherwise.
class WebAddress final {
public:
    // Absent unless it is an http or https address with a host.
    static std::optional<WebAddress> parse(const QString &text);

    // Whether it claims to be of the web, with or without a host.
    static bool isWeb(QStringView text);

    // A host so that each of its forms gives the same: lower case, an international name in ASCII, a number as an IPv4
    // address with dots. Percent-encoding is undone. Absent where no host can be called so.
    static std::optional<QString> comparableHost(QStringView host);

    // Comparable; a dot at the end is kept.
    const QString &host() const { return m_host; }

    bool hasUser() const { return !m_user.isEmpty(); }

    // Two addresses with the same key are the same page: letter case of scheme and host, the form of the host, and a
    // port that goes without saying make no difference.
    QString key() const;
    // As it was written, unless it holds what no address may: that is percent-encoded.
    QString toOpen() const;

private:
    WebAddress() = default;

    QString m_text;   // The whole.
    QString m_scheme; // "http" or "https".
    QString m_user;   // With the "@" behind it; empty when there is none.
    QString m_host;
    QString m_port; // With the colon before it; empty when it is the scheme's own.
    QString m_rest; // Path, query and fragment.
};

} // namespace ardeno
