// glidemap-fetch URL: writes what is published there to the standard output. The program calls it once a
// day; see app/fetch_program.h.
#include "app/https_fetch.h"

#include <QCoreApplication>
#include <QUrl>
#include <cstdlib>
#include <iostream>

int main(int count, char* arguments[]) {
    const QCoreApplication application(count, arguments);
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
