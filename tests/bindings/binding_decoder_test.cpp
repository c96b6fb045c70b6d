#include "binding_printers.h"
#include "bindings/binding_json.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <ostream>
#include <string>

namespace glidemap {
namespace {

using namespace std::string_literals;

constexpr const char* identifier = "0123ABCD-EF01-4567-89AB-CDEF01234567";

// A binding object whose members can be replaced or omitted.
struct Object {
    std::string id = R"("id": "0123ABCD-EF01-4567-89AB-CDEF01234567",)";
    std::string gesture = R"("gesture": "twoFingerTap",)";
    std::string action = R"("action": {"kind": "lockScreen"},)";
    std::string scope = R"("scope": {"kind": "global"},)";
    std::string enabled = R"("enabled": true)";

    std::string text() const { return "{" + id + gesture + action + scope + enabled + "}"; }
};

std::string in(const Object& object) {
    return "[" + object.text() + "]";
}

std::string withAction(const std::string& action) {
    return in({.action = R"("action": )" + action + ","});
}

std::string withScope(const std::string& scope) {
    return in({.scope = R"("scope": )" + scope + ","});
}

std::string withShortcut(const std::string& shortcut) {
    return withAction(R"({"kind": "keyboardShortcut", "shortcut": )" + shortcut + "}");
}

std::string withKeyCode(const std::string& keyCode) {
    return withShortcut(R"({"keyCode": )" + keyCode + R"(, "modifiers": 0})");
}

std::string withModifiers(const std::string& modifiers) {
    return withShortcut(R"({"keyCode": 0, "modifiers": )" + modifiers + "}");
}

GestureBinding expected(BindingAction action = LockScreen{}, BindingScope scope = GlobalScope{}) {
    return {.id = *Uuid::parse(identifier),
            .gesture = GestureType::twoFingerTap,
            .action = std::move(action),
            .scope = std::move(scope),
            .enabled = true};
}

struct Readable {
    const char* name;
    std::string text;
    std::vector<GestureBinding> bindings;
};

std::ostream& operator<<(std::ostream& stream, const Readable& row) {
    return stream << row.name;
}

class DecodedBindingsTest : public testing::TestWithParam<Readable> {};

TEST_P(DecodedBindingsTest, DecodesTheWholeArray) {
    const auto decoded = decodeBindings(GetParam().text);
    const auto* const failure = std::get_if<DecodingFailure>(&decoded);
    ASSERT_EQ(failure, nullptr) << failure->reason << "\n" << GetParam().text;
    EXPECT_EQ(std::get<std::vector<GestureBinding>>(decoded), GetParam().bindings);
}

INSTANTIATE_TEST_SUITE_P(
    Arrays, DecodedBindingsTest,
    testing::Values(Readable{"empty", "[]", {}}, //
                    Readable{"surrounding whitespace", "\t\r\n [ \n ] \n", {}},
                    Readable{"one", in({}), {expected()}},
                    Readable{"two bindings with the same identifier",
                             "[" + Object().text() + "," + Object().text() + "]",
                             {expected(), expected()}},
                    Readable{"a byte-order mark", "\xEF\xBB\xBF" + in({}), {expected()}}));

INSTANTIATE_TEST_SUITE_P(
    Actions, DecodedBindingsTest,
    testing::Values(
        Readable{"a shortcut",
                 withShortcut(R"({"keyCode": 124, "modifiers": 1572864})"),
                 {expected(KeyShortcut{124, 0x180000})}},
        Readable{"keys in any order",
                 withAction(R"({"shortcut": {"modifiers": 1, "keyCode": 2},
                                "kind": "keyboardShortcut"})"),
                 {expected(KeyShortcut{2, 1})}},
        Readable{"the overview",
                 withAction(R"({"kind": "missionControl"})"),
                 {expected(MissionControl{})}},
        Readable{"an application",
                 withAction(R"({"kind": "launchApp", "bundleID": "a.b", "name": "B"})"),
                 {expected(LaunchApp{"a.b", "B"})}},
        Readable{"empty texts",
                 withAction(R"({"kind": "launchApp", "bundleID": "", "name": ""})"),
                 {expected(LaunchApp{})}},
        Readable{"a key of another kind is ignored",
                 withAction(R"({"kind": "lockScreen", "bundleID": "x"})"),
                 {expected()}},
        Readable{"an unknown key with any value",
                 withAction(R"({"kind": "lockScreen", "bundleID": 1, "shortcut": []})"),
                 {expected()}},
        Readable{"escapes in a key and a text",
                 withAction(
                     R"({"k\u0069nd": "launchApp", "bundleID": "\ud83d\ude00", "name": "\u0000"})"),
                 {expected(LaunchApp{"😀", "\0"s})}}));

INSTANTIATE_TEST_SUITE_P(
    Scopes, DecodedBindingsTest,
    testing::Values(Readable{"an application",
                             withScope(R"({"kind": "app", "bundleID": "a.b", "name": "B"})"),
                             {expected(LockScreen{}, AppScope{"a.b", "B"})}},
                    Readable{"a global scope with an application's keys",
                             withScope(R"({"kind": "global", "bundleID": "a.b", "name": 3})"),
                             {expected()}}));

constexpr auto maxModifiers = std::numeric_limits<std::uint64_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Numbers, DecodedBindingsTest,
    testing::Values(
        Readable{"the least",
                 withShortcut(R"({"keyCode": 0, "modifiers": 0})"),
                 {expected(KeyShortcut{0, 0})}},
        Readable{"the highest key code", withKeyCode("65535"), {expected(KeyShortcut{65535, 0})}},
        Readable{"beyond the precision of a double",
                 withModifiers("9007199254740993"),
                 {expected(KeyShortcut{0, 9007199254740993})}},
        Readable{"beyond signed integers",
                 withModifiers("9223372036854775808"),
                 {expected(KeyShortcut{0, std::uint64_t{1} << 63})}},
        Readable{"2^64-1",
                 withModifiers("18446744073709551615"),
                 {expected(KeyShortcut{0, maxModifiers})}},
        Readable{"minus zero is zero", withKeyCode("-0"), {expected(KeyShortcut{0, 0})}},
        Readable{"minus zero as a fraction", withKeyCode("-0.0"), {expected(KeyShortcut{0, 0})}},
        Readable{"as a fraction", withKeyCode("36.0"), {expected(KeyShortcut{36, 0})}},
        Readable{"with an exponent", withKeyCode("3.6e1"), {expected(KeyShortcut{36, 0})}},
        Readable{
            "with a capital one and signs", withKeyCode("3.6E+1"), {expected(KeyShortcut{36, 0})}},
        Readable{
            "with a negative exponent", withKeyCode("3600e-2"), {expected(KeyShortcut{36, 0})}},
        Readable{"zero with any exponent",
                 withKeyCode("0e99999999999999999999"),
                 {expected(KeyShortcut{0, 0})}},
        Readable{"a long fraction of zeros",
                 withKeyCode("36." + std::string(500, '0')),
                 {expected(KeyShortcut{36, 0})}},
        Readable{"shifted far by the exponent and back",
                 withKeyCode("0." + std::string(500, '0') + "36e502"),
                 {expected(KeyShortcut{36, 0})}},
        Readable{"the highest as a fraction",
                 withModifiers("18446744073709551615.0"),
                 {expected(KeyShortcut{0, maxModifiers})}},
        Readable{"the highest with an exponent",
                 withModifiers("1.8446744073709551615e19"),
                 {expected(KeyShortcut{0, maxModifiers})}}));

std::string withUnknown(const std::string& value) {
    return in({.enabled = R"("enabled": true, "unknown": )" + value});
}

// The decoder ignores the values of unknown keys, so any valid JSON value is accepted there.
INSTANTIATE_TEST_SUITE_P(
    UnknownValues, DecodedBindingsTest,
    testing::Values(
        Readable{"beyond a double's range", withUnknown("1e400"), {expected()}},
        Readable{"far beyond", withUnknown("-1E+99999999999999999999"), {expected()}},
        Readable{"very many digits", withUnknown(std::string(1000, '9')), {expected()}},
        Readable{
            "very many with a fraction", withUnknown(std::string(400, '9') + ".25"), {expected()}},
        Readable{"below a double's range", withUnknown("1e-99999"), {expected()}},
        Readable{
            "such numbers deeper", withUnknown(R"([[1e400, {"a": 1e400}], 1e400])"), {expected()}},
        Readable{"an unpaired high surrogate", withUnknown(R"("\ud800")"), {expected()}},
        Readable{"an unpaired low surrogate", withUnknown(R"("\uDFFF")"), {expected()}},
        Readable{"surrogates in the wrong order", withUnknown(R"("\udc00\ud800")"), {expected()}},
        Readable{"two high surrogates", withUnknown(R"("\ud800\ud800\udc00")"), {expected()}},
        Readable{
            "half a pair before another escape", withUnknown(R"("\ud800\n\\ud800")"), {expected()}},
        Readable{"a number in a text", withUnknown(R"("1e400 \" 1e400")"), {expected()}},
        Readable{"a key with an unpaired surrogate",
                 in({.enabled = R"("\ud800": 1e400, "enabled": true)"}),
                 {expected()}},
        Readable{"very deep",
                 withUnknown(std::string(100'000, '[') + std::string(100'000, ']')),
                 {expected()}}));

INSTANTIATE_TEST_SUITE_P(
    UnpairedSurrogates, DecodedBindingsTest,
    testing::Values(
        Readable{"read as U+FFFD in a name",
                 withScope(R"({"kind": "app", "bundleID": "a", "name": "1e400 \ud800 \\ud800"})"),
                 {expected(LockScreen{}, AppScope{"a", "1e400 \uFFFD \\ud800"})}},
        Readable{"surrogate pairs are kept",
                 withScope(R"({"kind": "app", "bundleID": "a", "name": "\ud83d\ude00\ud83d"})"),
                 {expected(LockScreen{}, AppScope{"a", "😀\uFFFD"})}}));

GestureBinding disabled() {
    GestureBinding binding = expected();
    binding.enabled = false;
    return binding;
}

INSTANTIATE_TEST_SUITE_P(
    Keys, DecodedBindingsTest,
    testing::Values(
        Readable{"an identifier in lower case",
                 in({.id = R"("id": "0123abcd-ef01-4567-89ab-cdef01234567",)"}),
                 {expected()}},
        Readable{"not enabled", in({.enabled = R"("enabled": false)"}), {disabled()}},
        Readable{"unknown ones",
                 in({.enabled = R"("enabled": true, "color": "red", "": null)"}),
                 {expected()}},
        Readable{"unknown keys that contain known keys",
                 in({.enabled = R"("enabled": true, "old": {"enabled": false, "id": []})"}),
                 {expected()}},
        Readable{"known keys where they have no meaning",
                 in({.enabled = R"("enabled": true, "kind": "x", "keyCode": {"id": 1})"}),
                 {expected()}},
        Readable{"the same in another case",
                 in({.enabled = R"("enabled": true, "Enabled": 1)"}),
                 {expected()}},
        Readable{"the last of repeated keys counts",
                 in({.enabled = R"("enabled": true, "enabled": false)"}),
                 {disabled()}},
        Readable{"the last counts even if the first is invalid",
                 in({.enabled = R"("enabled": 7, "enabled": false)"}),
                 {disabled()}},
        Readable{"a repeated object replaces the whole of the first",
                 in({.action = R"("action": {"kind": "launchApp", "bundleID": "a", "name": "A"},
                                  "action": {"kind": "lockScreen"},)"}),
                 {expected()}}));

struct Unreadable {
    const char* name;
    std::string text;
    std::string reason;
};

std::ostream& operator<<(std::ostream& stream, const Unreadable& row) {
    return stream << row.name;
}

class RejectedBindingsTest : public testing::TestWithParam<Unreadable> {};

TEST_P(RejectedBindingsTest, RejectsTheWholeArrayWithAReason) {
    const auto decoded = decodeBindings(GetParam().text);
    const auto* const failure = std::get_if<DecodingFailure>(&decoded);
    ASSERT_NE(failure, nullptr) << GetParam().text;
    EXPECT_EQ(failure->reason, GetParam().reason) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    MissingKeys, RejectedBindingsTest,
    testing::Values(
        Unreadable{"identifier", in({.id = ""}), "[0].id: missing"},
        Unreadable{"gesture", in({.gesture = ""}), "[0].gesture: missing"},
        Unreadable{"action", in({.action = ""}), "[0].action: missing"},
        Unreadable{"scope", in({.scope = ""}), "[0].scope: missing"},
        Unreadable{"enabled", in({.enabled = R"("x": 1)"}), "[0].enabled: missing"},
        Unreadable{"all of them", "[{}]", "[0].id: missing"},
        Unreadable{"kind of action", withAction(R"({"name": "lockScreen"})"),
                   "[0].action.kind: missing"},
        Unreadable{"shortcut", withAction(R"({"kind": "keyboardShortcut"})"),
                   "[0].action.shortcut: missing"},
        Unreadable{"key code", withShortcut(R"({"modifiers": 0})"),
                   "[0].action.shortcut.keyCode: missing"},
        Unreadable{"modifiers", withShortcut(R"({"keyCode": 0})"),
                   "[0].action.shortcut.modifiers: missing"},
        Unreadable{"key code beside the shortcut",
                   withAction(R"({"kind": "keyboardShortcut", "keyCode": 0, "modifiers": 0})"),
                   "[0].action.shortcut: missing"},
        Unreadable{"application's identifier", withAction(R"({"kind": "launchApp", "name": "B"})"),
                   "[0].action.bundleID: missing"},
        Unreadable{"application's name", withAction(R"({"kind": "launchApp", "bundleID": "a"})"),
                   "[0].action.name: missing"},
        Unreadable{"kind of scope", withScope("{}"), "[0].scope.kind: missing"},
        Unreadable{"scope's identifier", withScope(R"({"kind": "app", "name": "B"})"),
                   "[0].scope.bundleID: missing"},
        Unreadable{"scope's name", withScope(R"({"kind": "app", "bundleID": "a"})"),
                   "[0].scope.name: missing"},
        Unreadable{"in another case", in({.enabled = R"("Enabled": true)"}),
                   "[0].enabled: missing"},
        Unreadable{"hidden in an unknown one", in({.enabled = R"("more": {"enabled": true})"}),
                   "[0].enabled: missing"}));

INSTANTIATE_TEST_SUITE_P(
    WrongTypes, RejectedBindingsTest,
    testing::Values(
        Unreadable{"identifier", in({.id = R"("id": 1,)"}), "[0].id: not a text"},
        Unreadable{"no identifier", in({.id = R"("id": null,)"}), "[0].id: not a text"},
        Unreadable{"gesture", in({.gesture = R"("gesture": ["twoFingerTap"],)"}),
                   "[0].gesture: not a text"},
        Unreadable{"gesture by number", in({.gesture = R"("gesture": 7,)"}),
                   "[0].gesture: not a text"},
        Unreadable{"action by name", withAction(R"("lockScreen")"), "[0].action: not an object"},
        Unreadable{"no action", withAction("null"), "[0].action: not an object"},
        Unreadable{"actions", withAction(R"([{"kind": "lockScreen"}])"),
                   "[0].action: not an object"},
        Unreadable{"kind of action", withAction(R"({"kind": true})"),
                   "[0].action.kind: not a text"},
        Unreadable{"kind of action in an object", withAction(R"({"kind": {"kind": "lockScreen"}})"),
                   "[0].action.kind: not a text"},
        Unreadable{"shortcut", withShortcut("[0, 0]"), "[0].action.shortcut: not an object"},
        Unreadable{"application's identifier",
                   withAction(R"({"kind": "launchApp", "bundleID": 1, "name": "B"})"),
                   "[0].action.bundleID: not a text"},
        Unreadable{"application's name",
                   withAction(R"({"kind": "launchApp", "bundleID": "a", "name": null})"),
                   "[0].action.name: not a text"},
        Unreadable{"scope by name", withScope(R"("global")"), "[0].scope: not an object"},
        Unreadable{"kind of scope", withScope(R"({"kind": 0})"), "[0].scope.kind: not a text"},
        Unreadable{"scope's identifier",
                   withScope(R"({"kind": "app", "bundleID": [], "name": ""})"),
                   "[0].scope.bundleID: not a text"},
        Unreadable{"scope's name", withScope(R"({"kind": "app", "bundleID": "", "name": {}})"),
                   "[0].scope.name: not a text"},
        Unreadable{"enabled by number", in({.enabled = R"("enabled": 1)"}),
                   "[0].enabled: not true or false"},
        Unreadable{"enabled by text", in({.enabled = R"("enabled": "true")"}),
                   "[0].enabled: not true or false"},
        Unreadable{"no enabled", in({.enabled = R"("enabled": null)"}),
                   "[0].enabled: not true or false"},
        Unreadable{"the last of repeated ones",
                   in({.enabled = R"("enabled": true, "enabled": null)"}),
                   "[0].enabled: not true or false"}));

INSTANTIATE_TEST_SUITE_P(
    OtherTexts, RejectedBindingsTest,
    testing::Values(
        Unreadable{"gesture", in({.gesture = R"("gesture": "sixFingerTap",)"}),
                   R"([0].gesture: "sixFingerTap" is not a gesture)"},
        Unreadable{"gesture in another case", in({.gesture = R"("gesture": "TwoFingerTap",)"}),
                   R"([0].gesture: "TwoFingerTap" is not a gesture)"},
        Unreadable{"gesture with a zero byte",
                   in({.gesture = R"("gesture": "twoFingerTap\u0000",)"}),
                   R"([0].gesture: "twoFingerTap\u0000" is not a gesture)"},
        Unreadable{"kind of action", withAction(R"({"kind": "sleep"})"),
                   R"([0].action.kind: "sleep" is not a kind of action)"},
        Unreadable{"a kind of scope as a kind of action", withAction(R"({"kind": "global"})"),
                   R"([0].action.kind: "global" is not a kind of action)"},
        Unreadable{"kind of action in another case", withAction(R"({"kind": "lockscreen"})"),
                   R"([0].action.kind: "lockscreen" is not a kind of action)"},
        Unreadable{"kind of scope", withScope(R"({"kind": ""})"),
                   R"([0].scope.kind: "" is not a kind of scope)"},
        Unreadable{"identifier in braces",
                   in({.id = R"("id": "{0123ABCD-EF01-4567-89AB-CDEF01234567}",)"}),
                   R"([0].id: "{0123ABCD-EF01-4567-89AB-CDEF01234567}" is not a UUID)"},
        Unreadable{"short identifier", in({.id = R"("id": "0123ABCD",)"}),
                   R"([0].id: "0123ABCD" is not a UUID)"},
        Unreadable{"empty identifier", in({.id = R"("id": "",)"}), R"([0].id: "" is not a UUID)"},
        Unreadable{"a long text is truncated",
                   in({.gesture = R"("gesture": ")" + std::string(61, 'x') + "\","}),
                   "[0].gesture: \"" + std::string(60, 'x') + "...\" is not a gesture"},
        Unreadable{"also by its displayed length",
                   in({.gesture = R"("gesture": ")" + std::string(61, '\x7f') + "\","}),
                   R"([0].gesture: "\u007f\u007f\u007f\u007f\u007f\u007f\u007f\u007f)"
                   R"(\u007f\u007f\u007f\u007f\u007f\u007f\u007f..." is not a gesture)"},
        Unreadable{"terminal escape sequences are not printed",
                   in({.gesture = R"("gesture": "\u001b[2J\u009b5m轻",)"}),
                   R"([0].gesture: "\u001b[2J\u009b5m\u8f7b" is not a gesture)"}));

constexpr const char* noKeyCode = "[0].action.shortcut.keyCode: not an integer from 0 to 65535";
constexpr const char* noModifiers =
    "[0].action.shortcut.modifiers: not an integer from 0 to 18446744073709551615";

INSTANTIATE_TEST_SUITE_P(
    InvalidNumbers, RejectedBindingsTest,
    testing::Values(
        Unreadable{"one too high", withKeyCode("65536"),
                   "[0].action.shortcut.keyCode: 65536 is not an integer from 0 to 65535"},
        Unreadable{"negative", withKeyCode("-1"), noKeyCode},
        Unreadable{"a fraction", withKeyCode("1.5"), noKeyCode},
        Unreadable{"almost a whole number", withKeyCode("36.00000000000000000000001"), noKeyCode},
        Unreadable{"a fraction by its exponent", withKeyCode("36e-1"), noKeyCode},
        Unreadable{"a negative whole number", withKeyCode("-36.0"), noKeyCode},
        Unreadable{"one too high as a fraction", withKeyCode("65536.0"),
                   "[0].action.shortcut.keyCode: 65536 is not an integer from 0 to 65535"},
        Unreadable{"beyond a double's range", withKeyCode("1e400"), noKeyCode},
        Unreadable{"below a double's range", withKeyCode("1e-400"), noKeyCode},
        Unreadable{"a text", withKeyCode("\"36\""), noKeyCode},
        Unreadable{"true", withKeyCode("true"), noKeyCode},
        Unreadable{"null", withKeyCode("null"), noKeyCode},
        Unreadable{"an object", withKeyCode("{}"), noKeyCode},
        Unreadable{"an array", withKeyCode("[36]"), noKeyCode},
        Unreadable{"beyond 64 bits", withKeyCode("18446744073709551616"), noKeyCode},
        Unreadable{"negative modifiers", withModifiers("-1"), noModifiers},
        Unreadable{"the lowest integer", withModifiers("-9223372036854775808"), noModifiers},
        Unreadable{"2^64", withModifiers("18446744073709551616"), noModifiers},
        Unreadable{"far beyond", withModifiers("1" + std::string(300, '0')), noModifiers},
        Unreadable{"2^64 as a fraction", withModifiers("18446744073709551616.0"), noModifiers},
        Unreadable{"beyond any exponent", withModifiers("1e99999999999999999999"), noModifiers},
        Unreadable{"modifiers as a text", withModifiers("\"0\""), noModifiers}));

INSTANTIATE_TEST_SUITE_P(
    Places, RejectedBindingsTest,
    testing::Values(
        Unreadable{"the third",
                   "[" + Object().text() + "," + Object().text() + "," +
                       Object{.gesture = R"("gesture": "x",)"}.text() + "]",
                   R"([2].gesture: "x" is not a gesture)"},
        Unreadable{"the first of two", "[{}, {}]", "[0].id: missing"},
        Unreadable{"the first in a binding",
                   in({.gesture = R"("gesture": 1,)", .action = "", .enabled = R"("x": 1)"}),
                   "[0].gesture: not a text"},
        Unreadable{"one null among good ones",
                   "[" + Object().text() + ", null, " + Object().text() + "]",
                   "[1]: not an object"},
        Unreadable{"an element that is a text", R"(["twoFingerTap"])", "[0]: not an object"},
        Unreadable{"an element that is an array", "[[]]", "[0]: not an object"},
        Unreadable{"an object instead of the array", Object().text(), "not an array"},
        Unreadable{"a number instead of the array", "0", "not an array"},
        Unreadable{"null instead of the array", "null", "not an array"},
        Unreadable{"a string instead of the array", "\"[]\"", "not an array"}));

// Only the start of the reason is compared, because the rest comes from the parser.
struct NoJson {
    const char* name;
    std::string text;
    std::string start = "not JSON: ";
};

std::ostream& operator<<(std::ostream& stream, const NoJson& row) {
    return stream << row.name;
}

class RejectedJsonTest : public testing::TestWithParam<NoJson> {};

TEST_P(RejectedJsonTest, RejectsTheWholeArrayWithALocationAndAShortReason) {
    const auto decoded = decodeBindings(GetParam().text);
    const auto* const failure = std::get_if<DecodingFailure>(&decoded);
    ASSERT_NE(failure, nullptr) << GetParam().text;
    EXPECT_EQ(failure->reason.substr(0, GetParam().start.size()), GetParam().start);
    EXPECT_LT(failure->reason.size(), 250U);
    for (const char character : failure->reason) {
        EXPECT_TRUE(character >= ' ' && character <= '~') << failure->reason;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, RejectedJsonTest,
    testing::Values(
        NoJson{"nothing", ""}, NoJson{"space", " \n"}, NoJson{"half a file", in({}).substr(0, 90)},
        NoJson{"only its first byte", "["},
        NoJson{"only its last byte is missing", in({}).substr(0, in({}).size() - 1)},
        NoJson{"trailing text", "[] x", "not JSON: parse error at line 1, column 4: "},
        NoJson{"a second array after it", in({}) + "[]"}, NoJson{"one bracket too many", "[]]"},
        NoJson{"a comma at the end", "[" + Object().text() + ",]"},
        NoJson{"a comma at an object's end", in({.enabled = R"("enabled": true,)"})},
        NoJson{"a comment", "[] // none"}, NoJson{"single quotes", "['a']"},
        NoJson{"a key without quotes", "[{id: 1}]"}, NoJson{"not a number", "[NaN]"},
        NoJson{"infinity", withKeyCode("Infinity")}, NoJson{"hexadecimal", withKeyCode("0x24")},
        NoJson{"a leading zero", withKeyCode("036")}, NoJson{"a plus sign", withKeyCode("+36")},
        NoJson{"a trailing decimal point", withKeyCode("36.")},
        NoJson{"a huge number with a leading zero", withModifiers("01e400")},
        NoJson{"a huge number without a digit after the point", withModifiers("1.e400")},
        NoJson{"two signs before a huge number", withModifiers("--1e400")},
        NoJson{"a token that ends in a huge number", withModifiers("nul1e400")},
        NoJson{"a decimal point after a huge number", withModifiers("1e400.5")},
        NoJson{"a newline in a string", "[\"a\nb\"]"},
        NoJson{"invalid UTF-8",
               withScope("{\"kind\": \"app\", \"bundleID\": \"\xFF\xFE\", \"name\": \"\"}")},
        NoJson{"invalid UTF-8 in an ignored value",
               in({.enabled = "\"enabled\": true, \"x\": \"\xC3\x28\""})},
        NoJson{"a surrogate in bytes",
               in({.enabled = "\"enabled\": true, \"x\": \"\xED\xA0\x80\""})},
        NoJson{"half an escape", in({.enabled = R"("enabled": true, "x": "\ud8")"})},
        NoJson{"half a file in an escape", R"([{"\ud8)"},
        NoJson{"a byte-order mark alone", "\xEF\xBB\xBF"},
        NoJson{"half a byte-order mark", "\xEF\xBB[]"},
        NoJson{"a byte-order mark in the middle", "[\xEF\xBB\xBF]"},
        NoJson{"16-bit characters", "\xFF\xFE[\0]\0"s}, NoJson{"a trailing zero byte", "[]\0"s},
        NoJson{"text after a zero byte", "[]\0garbage"s},
        NoJson{"a zero byte in a text", in({.enabled = "\"enabled\": true, \"x\": \"\0\""s})},
        NoJson{"a zero byte first", "\0[]"s},
        NoJson{"a very long token", std::string(100'000, 'x')},
        NoJson{"a very long text that does not end", "[\"" + std::string(100'000, '\x7F')},
        NoJson{"terminal escape sequences", "[\x1B[2J]"},
        NoJson{"on its third line", "[\n\n  x]", "not JSON: parse error at line 3, column 3: "}));

} // namespace
} // namespace glidemap
