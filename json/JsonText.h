// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

#include <optional>
#include <string_view>
#include <vector>

namespace ardeno::json {

// Decodes what stands between the quotes of a JSON text.
class TextDecoder final {
public:
    // The bytes must be valid UTF-8. Absent when an escape is malformed. Half of a surrogate pair becomes U+FFFD.
    std::optional<QString> decode(std::string_view bytes);

    // Whether the last text had such halves.
    bool hasReplaced() const { return m_hasReplaced; }

private:
    const char *decodeSome(const char *byte, const char *pause, const char *end);
    const char *decodeEscape(const char *byte, const char *end);
    const char *decodeCodeUnit(const char *byte, const char *end);
    const char *decodeMultiByte(const char *byte);
    void replaceHalves();

    std::vector<char16_t> m_units; // Kept from text to text for its room.
    char16_t *m_unit = nullptr;    // Where the next one goes.
    bool m_hasSurrogates = false;
    bool m_hasReplaced = false;
};

// The canonical form of 36 characters, in either case.
std::optional<QUuid> uuidFromText(std::string_view text);

} // namespace ardeno::json
