// Fetches something small over HTTPS, anew each time: no cache, no cookies, and nothing of the
// network is kept once it has ended. The programs that use it do so once a day.
//
// A redirect is followed to HTTPS only. A body that gets larger than its limit is cut off and
// counts as a failure.
//
// Units:   bytes.
// Thread:  the main thread, while there is a QCoreApplication.
// Errors:  as Fetch says.
#pragma once

#include "app/fetch.h"

#include <QList>
#include <QSslCertificate>
#include <chrono>

namespace glidemap {

struct HttpsFetchSetup {
    // Starts again with everything that comes.
    std::chrono::milliseconds silence = std::chrono::seconds(15);
    // Of the whole, so that one who sends a byte now and then does not keep us for ever.
    std::chrono::milliseconds whole = std::chrono::seconds(60);
    qint64 largestBody = 1024L * 1024;
    // Who vouches for the host; the system's where none is given.
    QList<QSslCertificate> authorities = {};
};

Fetch httpsFetch(HttpsFetchSetup setup = {});

} // namespace glidemap
