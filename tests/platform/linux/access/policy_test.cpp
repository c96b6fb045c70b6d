// Tests the values in the polkit policy, which is a small XML file.
#include <glib.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace glidemap {
namespace {

// Maps element paths to their texts. A path includes the attribute that distinguishes each element.
struct Contents {
    std::string path;
    std::map<std::string, std::string> texts;
};

void begin(GMarkupParseContext* /*context*/, const gchar* name, const gchar** names,
           const gchar** values, gpointer contents, GError** /*error*/) {
    std::string& path = static_cast<Contents*>(contents)->path;
    path += "/" + std::string(name);
    for (; *names != nullptr; ++names, ++values) {
        path += "[" + std::string(*values) + "]";
    }
}

void end(GMarkupParseContext* /*context*/, const gchar* /*name*/, gpointer contents,
         GError** /*error*/) {
    std::string& path = static_cast<Contents*>(contents)->path;
    path.erase(path.rfind('/'));
}

void text(GMarkupParseContext* /*context*/, const gchar* words, gsize size, gpointer contents,
          GError** /*error*/) {
    auto& all = *static_cast<Contents*>(contents);
    all.texts[all.path] += std::string(words, size);
}

std::map<std::string, std::string> policy() {
    std::ifstream file(POLICY_FILE);
    const std::string source{std::istreambuf_iterator<char>(file), {}};
    const GMarkupParser parser{begin, end, text, nullptr, nullptr};
    Contents contents;
    GMarkupParseContext* const context =
        g_markup_parse_context_new(&parser, GMarkupParseFlags{}, &contents, nullptr);
    EXPECT_TRUE(g_markup_parse_context_parse(context, source.data(),
                                             static_cast<gssize>(source.size()), nullptr));
    EXPECT_TRUE(g_markup_parse_context_end_parse(context, nullptr));
    g_markup_parse_context_free(context);
    return contents.texts;
}

const std::string action = "/policyconfig/action[org.glidemap.grant-access]";

TEST(PolicyTest, PolicyActionRunsTheInstalledProgram) {
    EXPECT_EQ(policy()[action + "/annotate[org.freedesktop.policykit.exec.path]"],
              INSTALLED_PROGRAM);
}

TEST(PolicyTest, OnlyAnAdministratorMayGrantAccess) {
    auto texts = policy();
    EXPECT_EQ(texts[action + "/defaults/allow_any"], "auth_admin");
    EXPECT_EQ(texts[action + "/defaults/allow_inactive"], "auth_admin");
    EXPECT_EQ(texts[action + "/defaults/allow_active"], "auth_admin");
}

TEST(PolicyTest, PromptTextExistsInEnglishAndChinese) {
    auto texts = policy();
    EXPECT_NE(texts[action + "/message"].find("permission"), std::string::npos);
    EXPECT_NE(texts[action + "/message[zh_CN]"].find("许可"), std::string::npos);
    EXPECT_FALSE(texts[action + "/description"].empty());
    EXPECT_FALSE(texts[action + "/description[zh_CN]"].empty());
}

} // namespace
} // namespace glidemap
