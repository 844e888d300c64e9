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
    // Whether the bytes are ASCII without a backslash, or known.
    enum class Content { Plain, Other };

    // Texts longer than this are not looked up.
    static constexpr size_t longest = 96;

    // Remembers that many texts, a power of two; 0 shares nothing.
    explicit TextPool(size_t places) : m_marks(places), m_places(places) {}

    // Makes the text when the bytes are plain or were met before; with Content::Other the caller has to decode them.
    Content find(std::string_view bytes, QString &text);
    // Remembers what the caller decoded, right after find() left it to him.
    void remember(std::string_view bytes, const QString &text);

private:
    // Hashes of the text held at a place and of the one met there last. Most texts stand in a library only once: a text
    // is held from the second time on, and until then nothing but this small table is touched.
    struct Mark {
        quint32 held = 0;
        quint32 seen = 0;
    };

    struct Place {
        std::string_view bytes = {};
        QString text = {};
    };

    std::vector<Mark> m_marks;
    std::vector<Place> m_places;
    quint32 m_hash = 0; // Of the last text.
};

} // namespace ardeno::json
