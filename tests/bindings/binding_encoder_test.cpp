#include "binding_printers.h"
#include "bindings/binding_json.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

constexpr const char* identifier = "0123ABCD-EF01-4567-89AB-CDEF01234567";

GestureBinding binding(BindingAction action, BindingScope scope = GlobalScope{}) {
    return {.id = *Uuid::parse(identifier),
            .gesture = GestureType::fixAndTapRight,
            .action = std::move(action),
            .scope = std::move(scope),
            .enabled = true};
}

TEST(BindingEncoderTest, EmptyListIsEncodedAsAnEmptyArray) {
    EXPECT_EQ(encodeBindings({}), "[]\n");
}

TEST(BindingEncoderTest, ShortcutIsEncodedIndentedWithSortedKeys) {
    EXPECT_EQ(encodeBindings({binding(KeyShortcut{124, 0x180000})}), R"([
  {
    "action": {
      "kind": "keyboardShortcut",
      "shortcut": {
        "keyCode": 124,
        "modifiers": 1572864
      }
    },
    "enabled": true,
    "gesture": "fixAndTapRight",
    "id": "0123ABCD-EF01-4567-89AB-CDEF01234567",
    "scope": {
      "kind": "global"
    }
  }
]
)");
}

TEST(BindingEncoderTest, ApplicationIsEncodedWithIdentifierAndName) {
    GestureBinding disabled =
        binding(LaunchApp{"org.example.Notes", "备忘录"}, AppScope{"org.example.Edit", "Edit"});
    disabled.enabled = false;
    EXPECT_EQ(encodeBindings({disabled}), R"([
  {
    "action": {
      "bundleID": "org.example.Notes",
      "kind": "launchApp",
      "name": "备忘录"
    },
    "enabled": false,
    "gesture": "fixAndTapRight",
    "id": "0123ABCD-EF01-4567-89AB-CDEF01234567",
    "scope": {
      "bundleID": "org.example.Edit",
      "kind": "app",
      "name": "Edit"
    }
  }
]
)");
}

TEST(BindingEncoderTest, ActionsWithoutParametersAreEncodedAsTheirKindOnly) {
    EXPECT_EQ(encodeBindings({binding(LockScreen{}), binding(MissionControl{})}), R"([
  {
    "action": {
      "kind": "lockScreen"
    },
    "enabled": true,
    "gesture": "fixAndTapRight",
    "id": "0123ABCD-EF01-4567-89AB-CDEF01234567",
    "scope": {
      "kind": "global"
    }
  },
  {
    "action": {
      "kind": "missionControl"
    },
    "enabled": true,
    "gesture": "fixAndTapRight",
    "id": "0123ABCD-EF01-4567-89AB-CDEF01234567",
    "scope": {
      "kind": "global"
    }
  }
]
)");
}

void expectRoundTrip(const std::vector<GestureBinding>& list) {
    const auto decoded = decodeBindings(encodeBindings(list));
    const auto* const failure = std::get_if<DecodingFailure>(&decoded);
    ASSERT_EQ(failure, nullptr) << failure->reason;
    EXPECT_EQ(std::get<std::vector<GestureBinding>>(decoded), list);
}

TEST(BindingEncoderTest, EncodedBindingsRoundTripWithTheirIdentifiers) {
    using Limits = std::numeric_limits<std::uint64_t>;
    using namespace std::string_literals;
    std::vector<GestureBinding> list;
    for (const GestureType gesture : allGestureTypes) {
        list.push_back({.gesture = gesture, .action = MissionControl{}, .scope = GlobalScope{}});
    }
    for (const std::uint64_t modifiers :
         {std::uint64_t{0}, std::uint64_t{1} << 53, (std::uint64_t{1} << 53) + 1,
          std::uint64_t{1} << 63, Limits::max() - 1, Limits::max()}) {
        list.push_back(binding(KeyShortcut{65535, modifiers}));
    }
    for (const std::string& text : {""s, "\""s, "\\"s, "\n\r\t\b\f"s, "\x01\x1F\x7F"s, "a\0b"s,
                                    "备忘录"s, "🖐🏽"s, "\u2028"s, std::string(100'000, 'x')}) {
        list.push_back(binding(LaunchApp{text, text}, AppScope{text, text}));
    }
    list.push_back(list.back()); // duplicates are allowed
    list.back().enabled = false;
    expectRoundTrip(list);
}

// Some programs take their names from arbitrary sources, so a name may be invalid UTF-8.
TEST(BindingEncoderTest, InvalidUtf8InOneBindingDoesNotAffectOtherBindings) {
    const GestureBinding good = binding(KeyShortcut{1, 2});
    for (const char* bytes : {"\xFF", "a\xC3", "\xC3(", "\xED\xA0\x80", "\xC0\x80", "\xF8\x88"}) {
        const GestureBinding bad = binding(LaunchApp{bytes, bytes}, AppScope{bytes, bytes});
        const auto decoded = decodeBindings(encodeBindings({good, bad, good}));
        const auto* const list = std::get_if<std::vector<GestureBinding>>(&decoded);
        ASSERT_NE(list, nullptr) << std::get<DecodingFailure>(decoded).reason;
        ASSERT_EQ(list->size(), 3U);
        EXPECT_EQ(list->at(0), good);
        EXPECT_EQ(list->at(2), good);
        const auto& written = std::get<LaunchApp>(list->at(1).action).name;
        EXPECT_NE(written.find("\uFFFD"), std::string::npos) << written;
    }
}

} // namespace
} // namespace glidemap
