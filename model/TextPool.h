// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string_view>
#include <vector>

namespace ardeno::json {

// Makes texts of UTF-8 and lets equal ones share their memory: the names of applications stand in a library thousands
// of times. The bytes given must stay where they are while the pool lives.
class TextPool final {
public:
    // Plain ASCII without a backslash, or absent.
    enum class Content { Plain, Other };

    struct Found {
        QString text;
        Content content;
    };

    // Texts longer than this are not looked up.
    static constexpr size_t longest = 96;

    // Remembers that many texts, a power of two; 0 shares nothing.
    explicit TextPool(size_t places) : m_places(places) {}

    // The bytes as a text when they were met before or are plain; with Content::Other the caller has to decode them.
    Found text(std::string_view bytes);
    // Remembers what the caller decoded.
    void remember(std::string_view bytes, const QString &text);

private:
    struct Place {
        std::string_view bytes = {};
        QString text = {};
    };

    Place *placeOf(std::string_view bytes);

    std::vector<Place> m_places;
};

} // namespace ardeno::json
