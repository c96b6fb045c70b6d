#include "core/uuid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <unordered_set>

namespace glidemap {
namespace {

constexpr const char* upper = "0123ABCD-EF01-4567-89AB-CDEF01234567";
constexpr const char* lower = "0123abcd-ef01-4567-89ab-cdef01234567";

TEST(UuidTest, ParsesEitherCaseAndPrintsUpperCase) {
    for (const char* text : {upper, lower, "0123abCD-ef01-4567-89aB-cdef01234567"}) {
        const auto parsed = Uuid::parse(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(parsed->text(), upper);
        EXPECT_EQ(*parsed, *Uuid::parse(upper));
    }
}

TEST(UuidTest, ParsesAnySixteenBytesRegardlessOfVersion) {
    for (const char* text :
         {"00000000-0000-0000-0000-000000000000", "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF",
          "01234567-89AB-1DEF-0123-456789ABCDEF"}) {
        const auto parsed = Uuid::parse(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(parsed->text(), text);
    }
}

TEST(UuidTest, RejectsInvalidText) {
    using namespace std::string_view_literals;
    constexpr std::pair<const char*, std::string_view> rows[] = {
        {"nothing", ""},
        {"one digit short", "0123ABCD-EF01-4567-89AB-CDEF0123456"},
        {"one digit long", "0123ABCD-EF01-4567-89AB-CDEF012345678"},
        {"enclosing braces", "{0123ABCD-EF01-4567-89AB-CDEF01234567}"},
        {"braces instead of digits", "{123ABCD-EF01-4567-89AB-CDEF0123456}"},
        {"a prefix", "urn:uuid:0123ABCD-EF01-4567-89AB-CDEF01234567"},
        {"no hyphens", "0123ABCDEF01456789ABCDEF01234567"},
        {"no hyphens, padded to full length", "0123ABCDEF01456789ABCDEF012345670123"},
        {"a misplaced hyphen", "0123ABC-DEF01-4567-89AB-CDEF01234567"},
        {"a space instead of a hyphen", "0123ABCD EF01-4567-89AB-CDEF01234567"},
        {"a leading space", " 123ABCD-EF01-4567-89AB-CDEF01234567"},
        {"a trailing newline", "0123ABCD-EF01-4567-89AB-CDEF0123456\n"},
        {"a letter that is not a digit", "0123ABCG-EF01-4567-89AB-CDEF01234567"},
        {"a space in the middle", "0123ABCD-EF01- 567-89AB-CDEF01234567"},
        {"a sign in the middle", "0123ABCD-EF01-4567-+9AB-CDEF01234567"},
        {"a space before two digits of the last group", "0123ABCD-EF01-4567-89AB- DEF01234567"},
        {"a sign", "+123ABCD-EF01-4567-89AB-CDEF01234567"},
        {"a zero byte instead of the last digit", "0123ABCD-EF01-4567-89AB-CDEF0123456\0"sv},
        {"a trailing zero byte", "0123ABCD-EF01-4567-89AB-CDEF01234567\0"sv},
        {"a wide digit", "\xEF\xBC\x90"
                         "3ABCD-EF01-4567-89AB-CDEF012345678"},
    };
    for (const auto& [name, text] : rows) {
        EXPECT_FALSE(Uuid::parse(text)) << name;
    }
}

TEST(UuidTest, GeneratedUuidIsRandomAndRoundTrips) {
    std::unordered_set<Uuid> made;
    for (int count = 0; count < 1'000; ++count) {
        const Uuid uuid = Uuid::generate();
        const std::string text = uuid.text();
        EXPECT_EQ(text.size(), 36U);
        EXPECT_EQ(text[14], '4') << "the version of random ones: " << text;
        EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos) << text;
        EXPECT_EQ(Uuid::parse(text), uuid);
        made.insert(uuid);
    }
    EXPECT_EQ(made.size(), 1'000U);
}

} // namespace
} // namespace glidemap
