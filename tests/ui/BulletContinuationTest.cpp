// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/BulletContinuation.h"

#include "tests/Printing.h"

using namespace ardeno;
using BulletContinuation::Selection;

namespace {

// The text after Return; "|" marks the caret, or both ends of the selection. A plain line break where there is no edit.
QString afterReturn(const QString &marked)
{
    QString text = marked;
    const qsizetype start = text.indexOf('|');
    text.remove(start, 1);
    const qsizetype end = text.indexOf('|');
    text.remove('|');
    const Selection selection{start, end < 0 ? 0 : end - start};
    const auto edit = BulletContinuation::edit(text, selection);
    const Selection range = edit ? edit->range : selection;
    const QString replacement = edit ? edit->replacement : "\n";
    text.replace(range.location, range.length, replacement);
    return text.insert(range.location + replacement.size(), '|');
}

// The text after one insertion after another at its end.
QString afterInserting(const QStringList &insertions)
{
    QString text;
    for (const QString &inserted : insertions) {
        const auto edit = BulletContinuation::insertion(text, {text.size(), 0}, inserted);
        if (edit)
            text.replace(edit->range.location, edit->range.length, edit->replacement);
        else
            text += inserted;
    }
    return text;
}

} // namespace

TEST_CASE("return continues a list, and ends it on an empty bullet")
{
    struct Case {
        QString before;
        QString after;
    };

    const Case cases[] = {
        {"  - milk|", "  - milk\n  - |"},
        {"  - milk\n  - |", "  - milk\n|"},
        {"\t* a|", "\t* a\n\t* |"},
        {u"• one|"_qs, u"• one\n• |"_qs},
        {u"• o|ne"_qs, u"• o\n• |ne"_qs},
        {"- \n|", "- \n\n|"},       // The caret's line is the empty one below.
        {"1. text|", "1. text\n|"}, // Numbers are not continued.
        {"-milk|", "-milk\n|"},     // No space, no bullet.
        {"plain|", "plain\n|"},
        {"|- milk", "\n|- milk"}, // The marker is behind the caret.
        {"-| milk", "-\n| milk"},
        {"|", "\n|"},
        {"- |x|", "- \n- |"},                       // A selection is replaced,
        {"- | |", "- \n- |"},                       // also on an empty bullet.
        {"-  |", "|"},                              // More white space is still an empty bullet.
        {u"• 😀|😀"_qs, u"• 😀\n• |😀"_qs},         // Two units a character.
        {u"- a\u2028b|"_qs, u"- a\u2028b\n- |"_qs}, // Only a line feed ends a line.
        {"first\n\n  - x|\nlast", "first\n\n  - x\n  - |\nlast"},
    };
    for (const Case &each : cases) {
        CAPTURE(each.before);
        CHECK(afterReturn(each.before) == each.after);
    }
}

TEST_CASE("a selection outside of the text is no edit")
{
    const QString text = "- milk";
    for (const Selection &selection : {Selection{-1, 0}, Selection{7, 0}, Selection{3, 4}, Selection{3, -1},
                                       Selection{0x7fffffffffffffff, 0}, Selection{1, 0x7fffffffffffffff}})
        CHECK_FALSE(BulletContinuation::edit(text, selection));
}

TEST_CASE("the first text of a note becomes a list item unless it brings a form of its own")
{
    struct Case {
        QStringList insertions;
        QString text;
    };

    const Case cases[] = {
        {{"a"}, u"• a"_qs},
        {{"a", "b"}, u"• ab"_qs},
        {{"-", " ", "x"}, "- x"},
        {{"- x"}, "- x"},
        {{"*", " ", "x"}, "* x"},
        {{u"•"_qs, " ", "x"}, u"• x"_qs},
        {{"-", "5"}, u"• -5"_qs}, // The marker was none.
        {{"*", "*"}, "**"},
        {{"one\ntwo"}, "one\ntwo"},
        {{"\n"}, "\n"},
        {{"pasted words"}, u"• pasted words"_qs},
        {{u"漢字"_qs}, u"• 漢字"_qs},
    };
    for (const Case &each : cases) {
        CAPTURE(each.insertions);
        CHECK(afterInserting(each.insertions) == each.text);
    }
}
