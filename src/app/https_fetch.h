// Downloads a small file over HTTPS without caching: no cookies, and no network objects remain
// afterwards. The programs that use it do so once a day.
//
// Follows redirects to HTTPS only. A body above the size limit is cut off and counts as a failure.
//
// Units:   bytes.
// Thread:  the main thread, during the life of the QCoreApplication.
// Errors:  as Fetch says.
#pragma once

#include "app/fetch.h"

#include <QList>
#include <QSslCertificate>
#include <chrono>

namespace glidemap {

struct HttpsFetchSetup {
    // Time-out without received data; restarts with each chunk.
    std::chrono::milliseconds silence = std::chrono::seconds(15);
    // Time-out for the whole transfer, so that a server cannot keep it open by sending single
    // bytes.
    std::chrono::milliseconds whole = std::chrono::seconds(60);
    qint64 maxBody = 1024L * 1024;
    // Trusted certificate authorities; empty means those of the system.
    QList<QSslCertificate> authorities = {};
};

Fetch httpsFetch(HttpsFetchSetup setup = {});

} // namespace glidemap
