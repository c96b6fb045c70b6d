#include "access_list.h"

#include <gtest/gtest.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace glidemap::test {

namespace {

constexpr const char* attribute = "system.posix_acl_access";
constexpr int readAndWrite = ACL_READ | ACL_WRITE;

// The format in which the kernel stores the list: little-endian, with the entries in this order.
struct AccessList {
    posix_acl_xattr_header header;
    std::array<posix_acl_xattr_entry, 5> entries;
};
static_assert(sizeof(AccessList) == 4 + 5 * 8);

posix_acl_xattr_entry entry(int tag, int permissions, id_t id = ACL_UNDEFINED_ID) {
    return {
        .e_tag = static_cast<__le16>(tag), .e_perm = static_cast<__le16>(permissions), .e_id = id};
}

} // namespace

void allow(const std::filesystem::path& node, uid_t user) {
    const AccessList list{{.a_version = POSIX_ACL_XATTR_VERSION},
                          {entry(ACL_USER_OBJ, readAndWrite), entry(ACL_USER, readAndWrite, user),
                           entry(ACL_GROUP_OBJ, 0), entry(ACL_MASK, readAndWrite),
                           entry(ACL_OTHER, 0)}};
    EXPECT_EQ(setxattr(node.c_str(), attribute, &list, sizeof list, 0), 0) << std::strerror(errno);
}

void withdraw(const std::filesystem::path& node) {
    EXPECT_EQ(removexattr(node.c_str(), attribute), 0) << std::strerror(errno);
}

} // namespace glidemap::test
