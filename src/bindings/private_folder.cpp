#include "bindings/private_folder.h"

#include "core/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace glidemap {

void makePrivateFolder(const std::filesystem::path& folder) {
    constexpr mode_t othersRights = S_IRWXG | S_IRWXO;
    mkdir(folder.c_str(), S_IRWXU);
    const OpenFile opened(
        retried([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    struct stat status {};
    if (opened && fstat(opened.descriptor(), &status) == 0 && status.st_uid == geteuid() &&
        (status.st_mode & othersRights) != 0) {
        fchmod(opened.descriptor(), status.st_mode & ~static_cast<mode_t>(S_IFMT | othersRights));
    }
}

} // namespace glidemap
