// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/FirefoxState.h"
#include "platform/linux/browsers/SnssReader.h"
#include "tests/Printing.h"
#include "tests/platform/browserstate/StateBytes.h"

#include <random>

using namespace ardeno;
using namespace ardeno::sessions;

namespace {

// Bytes with a few of them changed, moved or missing. The same every time.
class Mutations final {
public:
    QByteArray of(QByteArray bytes)
    {
        for (qsizetype changes = 1 + below(4); changes > 0 && !bytes.isEmpty(); --changes)
            change(bytes);
        return bytes;
    }

private:
    qsizetype below(qsizetype bound) { return static_cast<qsizetype>(m_random() % static_cast<size_t>(bound)); }

    void change(QByteArray &bytes)
    {
        static constexpr std::array<char, 6> telling = {'\0', '\x01', '\x7f', '\x80', '\xfe', '\xff'};
        const qsizetype place = below(bytes.size());
        switch (below(5)) {
        case 0:
            bytes[place] = static_cast<char>(bytes[place] ^ (1 << below(8)));
            break;
        case 1:
            bytes[place] = telling[static_cast<size_t>(below(telling.size()))];
            break;
        case 2:
            bytes.remove(place, 1 + below(8));
            break;
        case 3:
            bytes.insert(place, bytes.mid(below(bytes.size()), below(40)));
            break;
        default:
            bytes.truncate(place);
        }
    }

    std::mt19937 m_random{20010101};
};

constexpr int rounds = 20'000;

} // namespace

TEST_CASE("whatever happened to a Chromium session file, reading it is safe")
{
    Snss file;
    file.window(1).window(2).tab(1, 5, 0, "http://h/a", u"Ä"_qs).tab(1, 6, 1, "http://h/b").tab(2, 7, 0, "http://h/c");
    file.record(15, pickle(numbers({2}) + string8("app"))).marker().navigation(5, 1, "http://h/d").record(7, {5, 1});
    file.record(24, {5, 0, 1}).record(11, {5, 1}).record(5, {6, 1}).close(16, 7).close(17, 2);
    Mutations mutations;
    qsizetype tabs = 0;
    for (int round = 0; round < rounds; ++round) {
        for (const ListedWindow &window :
             SnssReader::read(mutations.of(file.bytes())).value_or(SnssReader::Session()).windows)
            tabs += window.tabs.size();
    }
    CHECK(tabs > rounds / 10); // Most of the files were still worth reading.
}

TEST_CASE("whatever happened to a Firefox session file, reading it is safe")
{
    const QByteArray text = R"({"windows":[{"tabs":[{"entries":[{"url":"http://h/a","title":"\ud83c\udf88"},)"
                            R"({"url":"http://h/b","title":"B"}],"index":2,"pinned":false},{"entries":[]}],)"
                            R"("selected":1,"width":5,"height":6,"screenX":-1,"sizemode":"normal"}]})";
    const QByteArray file = mozLz4(text);
    Mutations mutations;
    qsizetype readable = 0;
    for (int round = 0; round < rounds; ++round) {
        FirefoxState::windows(mutations.of(file));
        readable += FirefoxState::windows(mozLz4(mutations.of(text))).has_value();
    }
    CHECK(readable > 0);
}
