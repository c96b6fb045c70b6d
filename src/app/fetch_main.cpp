// glidemap-fetch URL: downloads the file at this URL and writes it to standard output. Glidemap
// runs this helper for each update check; see app/fetch_program.h.
#include "app/https_fetch.h"

#include <sys/resource.h>

#include <QCoreApplication>
#include <QUrl>
#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

// The maximum address space in bytes. An HTTPS fetch needs less than a fifth of it. The limit
// protects the machine if a malicious response makes a library allocate too much memory. Builds
// with sanitizers do not set it, because sanitizers reserve much more.
[[maybe_unused]] constexpr rlim_t memoryLimit = 512UL * 1024 * 1024;

void limitMemory() {
#if !defined(GLIDEMAP_SANITIZED)
    rlimit limit = {};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = limit.rlim_max = std::min(limit.rlim_max, memoryLimit);
    setrlimit(RLIMIT_AS, &limit);
#endif
}

} // namespace

int main(int count, char* arguments[]) {
    limitMemory();
    const QCoreApplication application(count, arguments);
#if defined(GLIDEMAP_PLUGINS)
    QCoreApplication::addLibraryPath(QCoreApplication::applicationDirPath() + GLIDEMAP_PLUGINS);
#endif
    const QUrl url(count == 2 ? QString::fromLocal8Bit(arguments[1]) : QString(), QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != "https" || url.host().isEmpty()) {
        std::cerr << "usage: glidemap-fetch https://HOST/PATH" << std::endl;
        return 2;
    }
    glidemap::httpsFetch()(arguments[1], [](const glidemap::Fetched& fetched) {
        std::cout << fetched.body << std::flush;
        if (fetched.transportError) {
            std::cerr << *fetched.transportError << std::endl;
        }
        QCoreApplication::exit(fetched.transportError ? EXIT_FAILURE : EXIT_SUCCESS);
    });
    return QCoreApplication::exec();
}
