// SPDX-License-Identifier: GPL-3.0-or-later
#include "json/Json.h"

#include "model/WorkspaceRecords.h"
#include "support/Failure.h"
#include "tests/Printing.h"
#include "json/SameRecord.h"

#include <QJsonDocument>

#include <cmath>
#include <limits>

using namespace ardeno;

namespace {

// One field of every type.
struct Sample {
    qint64 whole = 0;
    quint32 natural = 0;
    qint32 small = 0;
    double real = 0;
    bool flag = false;
    QString text = {};
    std::optional<qint32> number = {};
    QStringList names = {};
    std::optional<WindowRect> frame = {};

    bool operator==(const Sample &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"whole", &Sample::whole},   Field{"natural", &Sample::natural}, Field{"small", &Sample::small},
            Field{"real", &Sample::real},     Field{"flag", &Sample::flag},       Field{"text", &Sample::text},
            Field{"number", &Sample::number}, Field{"names", &Sample::names},     Field{"frame", &Sample::frame}};
    }
};

const QByteArray minimal = R"({"whole":1,"natural":2,"small":-3,"real":4.5,"flag":true,"text":"t","names":[]})";

// The minimal text with one value replaced by another.
QByteArray with(const char *key, const QByteArray &value)
{
    QByteArray text = minimal;
    const qsizetype start = text.indexOf(QByteArray("\"") + key + "\":") + qsizetype(strlen(key)) + 3;
    qsizetype end = start;
    while (text[end] != ',' && text[end] != '}')
        ++end;
    return text.replace(start, end - start, value);
}

template <typename T>
QString decodingFailure(const QByteArray &text)
{
    try {
        json::decode<T>(text);
    } catch (const Failure &failure) {
        CHECK(failure.domain() == "Json");
        return failure.description();
    }
    return "accepted";
}

QString withText(const QByteArray &quoted)
{
    return json::decode<Sample>(with("text", quoted)).text;
}

Checkpoint fullCheckpoint()
{
    Checkpoint checkpoint{.id = QUuid("{0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9}"), .title = u"Ti \"t\\le\" 🎉"_qs};
    checkpoint.projectID = checkpoint.id;
    checkpoint.createdAt = Date{712345678.123456};
    checkpoint.nextStep = "1. one\n2. two";
    checkpoint.apps = {{"org.example.Editor", "Editor"}};
    const SavedTab tab{.id = checkpoint.id, .title = u"עברית مرحبا"_qs, .url = "https://example.org/", .window = -1};
    checkpoint.tabs = {tab};
    const SavedWindow window{.id = checkpoint.id, .frame = {0.1, -0.0, 1e300, 5e-324}, .displayID = 4294967295};
    checkpoint.windows = {window};
    checkpoint.isExample = false;
    return checkpoint;
}

} // namespace

TEST_CASE("a checkpoint is written compactly, in order, without what is absent")
{
    CHECK(json::encode(fullCheckpoint()) ==
          R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","title":"Ti \"t\\le\" 🎉",)"
          R"("projectID":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9",)"
          R"("windows":[{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","appID":"","appName":"","title":"",)"
          R"("frame":{"x":0.1,"y":-0,"width":1e+300,"height":5e-324},"displayID":4294967295,)"
          R"("displayFrame":{"x":0,"y":0,"width":0,"height":0},"windowID":0,"processID":0}],)"
          R"("createdAt":712345678.123456,"objective":"","decision":"","nextStep":"1. one\n2. two",)"
          R"("apps":[{"id":"org.example.Editor","name":"Editor"}],)"
          R"("tabs":[{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","title":"עברית مرحبا",)"
          R"("url":"https://example.org/","window":-1}],"captureNote":"","isSample":false,"isExample":false})");
    CHECK(isSame(json::decode<Checkpoint>(json::encode(fullCheckpoint())), fullCheckpoint()));

    Checkpoint stood = fullCheckpoint();
    SavedWindow &window = stood.windows->first();
    window.desktop = 1;
    window.desktopName = "Mail";
    window.states = {"minimised", "a word of later days"};
    const QByteArray written = json::encode(stood);
    CHECK(written.contains(R"("desktop":1,"desktopName":"Mail","states":["minimised","a word of later days"]})"));
    CHECK(isSame(json::decode<Checkpoint>(written), stood));
}

TEST_CASE("every text comes back as it was, and other readers agree on it")
{
    QString controls;
    for (char16_t unit = 0; unit < 0x100; ++unit)
        controls += QChar(unit);
    const QString texts[] = {
        {},
        "plain",
        controls,
        u"e\u0301 ß 漢字 \u2028\u2029\ufeff\uffff"_qs,
        u"👩‍👩‍👧‍👦🎉\U0010ffff"_qs,
        u"\u202eright to left\u202c עברית"_qs,
        "fifteen chars ok\\",
        "seventeen chars \"x",
        QString(10'000, 'n'),
        QString(9'999, 'n') + u"é"_qs,
        QString(5'000, QChar(1)),
    };
    for (const QString &text : texts) {
        CAPTURE(text.left(30));
        const QByteArray bytes = json::encode(Sample{.text = text, .names = {text, "n", text}});
        const auto back = json::decode<Sample>(bytes);
        CHECK(back.text == text);
        CHECK(back.names == QStringList{text, "n", text});
        CHECK(QJsonDocument::fromJson(bytes)["text"].toString() == text);
    }
}

TEST_CASE("half of a surrogate pair never makes the text unreadable")
{
    const QChar high(0xD83C);
    const QChar low(0xDF89);
    const QString damaged = QString("a") + high + "b" + low + high + high + low + high;
    const auto back = json::decode<Sample>(json::encode(Sample{.text = damaged}));
    CHECK(back.text == u"a\ufffdb\ufffd\ufffd🎉\ufffd"_qs);
    CHECK(withText(R"("\ud83c\udf89 \ud83c x \udf89")") == u"🎉 \ufffd x \ufffd"_qs);
}

TEST_CASE("escapes are read in all their forms")
{
    CHECK(withText(R"("\"\\\/\b\f\n\r\t\u00e9\u00E9\u0000")") == QString("\"\\/\b\f\n\r\té\u00e9") + QChar(0));
    CHECK(withText("\"spaces behind\" \n\t ") == "spaces behind");
    for (const char *bad : {R"("\x")", R"("\u12")", R"("\u12g4")", R"("\ud83")"})
        CHECK(decodingFailure<Sample>(with("text", bad)).startsWith("text: the JSON is malformed"));
}

TEST_CASE("numbers come back exactly")
{
    const double reals[] = {0.1,
                            -0.0,
                            1.0 / 3,
                            5e-324,
                            std::numeric_limits<double>::max(),
                            9007199254740993.0,
                            712345678.9876543,
                            -1e15,
                            1e21,
                            123456789012345680.0};
    for (const double real : reals) {
        const auto back = json::decode<Sample>(json::encode(Sample{.real = real}));
        CHECK(isSame(back.real, real));
    }
    const Sample extremes{.whole = std::numeric_limits<qint64>::min(),
                          .natural = std::numeric_limits<quint32>::max(),
                          .small = std::numeric_limits<qint32>::min(),
                          .number = std::numeric_limits<qint32>::max()};
    CHECK(json::decode<Sample>(json::encode(extremes)) == extremes);
    for (const double none : {qQNaN(), qInf(), -qInf()})
        CHECK(json::decode<Sample>(json::encode(Sample{.real = none})).real == 0);
    CHECK(json::decode<Sample>(with("whole", "2.0e1")).whole == 20);
}

TEST_CASE("a wrong value is named by its place and by what is needed there")
{
    struct Case {
        QByteArray text;
        QString message;
    };

    const Case cases[] = {
        {with("whole", "\"1\""), "whole: a whole number of at most 64 bits is required."},
        {with("whole", "1.5"), "whole: a whole number of at most 64 bits is required."},
        {with("whole", "9223372036854775808"), "whole: a whole number of at most 64 bits is required."},
        {with("natural", "4294967296"), "natural: a whole number from 0 to 4294967295 is required."},
        {with("natural", "-1"), "natural: a whole number from 0 to 4294967295 is required."},
        {with("small", "2147483648"), "small: a whole number from -2147483648 to 2147483647 is required."},
        {with("real", "1e999"), "real: a number is required."},
        {with("real", "null"), "real: a number is required."},
        {with("real", "01"), "real: a number is required."},
        {with("flag", "1"), "flag: true or false is required."},
        {with("text", "null"), "text: a text is required."},
        {with("names", "[\"a\",2]"), "names[1]: a text is required."},
        {with("names", "{}"), "names: a list is required."},
        {with("names", "[],\"frame\":{\"x\":1,\"y\":[]}"), "frame.y: a number is required."},
        {with("names", "[],\"frame\":{\"x\":1,\"y\":2}"), "frame.width: a number is required, but the key is missing."},
        {with("names", "[],\"number\":\"x\""), "number: a whole number from -2147483648 to 2147483647 is required."},
        {with("names", "[],\"names\":[]"), "names: the key stands there twice."},
        {R"({"whole":1})", "natural: a whole number from 0 to 4294967295 is required, but the key is missing."},
        {"[]", "top level: an object is required."},
        {"12", "top level: an object or a list is required."},
    };
    for (const Case &c : cases) {
        CAPTURE(c.text);
        CHECK(decodingFailure<Sample>(c.text) == c.message);
    }
    CHECK(decodingFailure<WorkspaceLibrary>(R"({"version":2,"projects":[],"checkpoints":[)" +
                                            json::encode(fullCheckpoint()) + R"(,{"id":"0A1B2C3D"}]})") ==
          "checkpoints[1].id: a UUID is required.");
}

TEST_CASE("what may be missing may be null, and what is unknown is passed over")
{
    const auto optional = json::decode<Sample>(with("names", R"([],"number":null,"frame":null)"));
    CHECK_FALSE(optional.number.has_value());
    CHECK_FALSE(optional.frame.has_value());

    const QByteArray extra = R"([],"n\u0061mes2":{"a":[1,{"b":null}],"c":"\ud800"},"x":[[]],"y":true,"number":7)";
    CHECK(json::decode<Sample>(with("names", extra)).number == 7);
    // The order is free, white space too, a key may be escaped, and there may be a mark of byte order.
    CHECK(json::decode<WindowRect>("\xEF\xBB\xBF \r\n{ \"height\" :1 ,\t\"wi\\u0064th\":2, \"x\":3,\"y\":4 } ") ==
          WindowRect{3, 4, 2, 1});
}

TEST_CASE("text that is not JSON is refused wherever it is cut or damaged")
{
    const QByteArray whole = json::encode(fullCheckpoint());
    for (qsizetype length = 0; length < whole.size(); ++length) {
        CAPTURE(length);
        CHECK(decodingFailure<Checkpoint>(whole.first(length)) != "accepted");
    }
    const QByteArray broken[] = {
        "",
        " \n",
        "\xFF\xFE{\0}",
        minimal + "x",
        minimal + minimal,
        minimal + "]",
        with("text", "\"a\nb\""),
        with("text", "\"\xC3(\""),
        with("text", "\"\xED\xA0\x80\""),
        with("flag", "truex"),
        with("flag", "tru"),
        with("names", "[\"a\" \"b\"]"),
        with("names", "[\"a\",]"),
        with("names", "[],\"unknown\":[1,2}"),
        with("names", "[],\"unknown\":nul"),
        with("names", "[],\"unknown\":{\"a\" 1}"),
        with("names", "[],\"unknown\":\"\\x\""),
        with("names", "[],unknown:1"),
        QByteArray(minimal).replace(",", " "),
        QByteArray(minimal).replace("}", ",}"),
        QByteArray(100, '\0'),
    };
    for (const QByteArray &text : broken) {
        CAPTURE(text);
        CHECK(decodingFailure<Sample>(text) != "accepted");
    }
    CHECK(decodingFailure<Sample>("{\"whole\":\"\xFF\"}") == "The text is not valid UTF-8.");
    CHECK(decodingFailure<Sample>("") == "The text is empty.");
    CHECK(decodingFailure<Sample>(with("flag", "true,,")).contains("near byte"));
}

TEST_CASE("nesting without end is refused without filling the stack")
{
    const QByteArray deep(1'000'000, '[');
    for (const char *key : {"names", "frame", "unknown"}) {
        const QByteArray closed = deep + QByteArray(deep.size(), ']');
        CHECK(decodingFailure<Sample>(with("names", QByteArray("[],\"") + key + "\":" + closed)) != "accepted");
    }
    CHECK(decodingFailure<Sample>(deep) != "accepted");
    CHECK(decodingFailure<Sample>(with("names", "[],\"u\":" + deep + QByteArray(deep.size(), ']')))
              .contains("too deeply"));
}
