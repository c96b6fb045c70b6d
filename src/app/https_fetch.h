// Downloads a small file over HTTPS, without cookies or a cache. Frees all network objects
// afterwards, because the program downloads only once a day.
//
// Follows redirects to HTTPS only. A body above the size limit is discarded and counts as a
// failure.
//
// Units:   bytes.
// Thread:  the main thread, during the life of the QCoreApplication.
// Errors:  see Fetch.
#pragma once

#include "app/fetch.h"

#include <QList>
#include <QSslCertificate>
#include <chrono>

namespace glidemap {

struct HttpsFetchSetup {
    // The maximum time without progress. Each redirect, the complete header and each chunk of the
    // body restart this timeout.
    std::chrono::milliseconds silence = std::chrono::seconds(15);
    // The maximum time for the whole transfer. Without it, a server could keep the connection open
    // by sending single bytes.
    std::chrono::milliseconds whole = std::chrono::seconds(60);
    qint64 maxBody = 1024L * 1024;
    // The trusted certificate authorities. If empty, the system's authorities are trusted.
    QList<QSslCertificate> authorities = {};
};

Fetch httpsFetch(HttpsFetchSetup setup = {});

} // namespace glidemap
