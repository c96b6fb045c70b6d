#include "bindings/binding_scope.h"
#include "kit/in_language.h"

#include <gtest/gtest.h>

#include <unordered_set>
#include <vector>

namespace glidemap {
namespace {

const std::vector<BindingScope> different = {
    GlobalScope{},     AppScope{"a", "b"}, AppScope{"b", "a"}, AppScope{"a", ""},
    AppScope{"", "a"}, AppScope{"ab", ""}, AppScope{"", ""},
};

TEST(BindingScopeTest, IsShownAsGlobalOrAsTheApplicationName) {
    Lang lang(nullptr);
    EXPECT_EQ(displayString(BindingScope(GlobalScope{}), lang), "Global");
    EXPECT_EQ(displayString(BindingScope(AppScope{"org.example.Notes", "Notes"}), lang), "Notes");
    lang.setCode("zh");
    EXPECT_EQ(displayString(BindingScope(GlobalScope{}), lang), "全局");
    EXPECT_EQ(displayString(BindingScope(AppScope{"org.example.Notes", "Notes"}), lang), "Notes");
}

TEST(BindingScopeTest, IsShownInTheProgramLanguageByDefault) {
    const test::InLanguage chinese("zh");
    EXPECT_EQ(displayString(BindingScope(GlobalScope{})), "全局");
}

TEST(BindingScopeTest, EqualityComparesKindIdentifierAndName) {
    for (std::size_t one = 0; one < different.size(); ++one) {
        for (std::size_t other = 0; other < different.size(); ++other) {
            EXPECT_EQ(different[one] == different[other], one == other) << one << ", " << other;
        }
    }
}

TEST(BindingScopeTest, HashIncludesIdentifierAndName) {
    std::unordered_set<std::size_t> hashes;
    for (const BindingScope& scope : different) {
        hashes.insert(std::hash<BindingScope>()(scope));
        EXPECT_EQ(std::hash<BindingScope>()(scope), std::hash<BindingScope>()(BindingScope(scope)));
    }
    EXPECT_EQ(hashes.size(), different.size()) << "two of them share a hash";
}

TEST(BindingScopeTest, CanBeAKeyInHashContainers) {
    std::unordered_set<BindingScope> scopes(different.begin(), different.end());
    scopes.insert(different.begin(), different.end());
    EXPECT_EQ(scopes.size(), different.size());
    EXPECT_TRUE(scopes.contains(AppScope{"a", "b"}));
    EXPECT_FALSE(scopes.contains(AppScope{"a", "c"}));
}

} // namespace
} // namespace glidemap
