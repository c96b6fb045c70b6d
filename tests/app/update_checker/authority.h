// Certificates for a test's own server, made anew each time by the openssl program.
//
// Owner:   a test.
// Errors:  what cannot be made is a failure of the test.
#pragma once

#include "kit/temporary_folder.h"

#include <QList>
#include <QSslCertificate>
#include <QSslKey>
#include <string>

namespace glidemap::test {

// What a server shows: its certificate, and the key to it.
struct Identity {
    QSslCertificate certificate;
    QSslKey key;
};

class Authority {
public:
    Authority();

    // For whoever shall trust it.
    const QList<QSslCertificate>& certificates() const { return itself; }

    // As in openssl's subjectAltName; negative days make it one that has expired.
    Identity vouchFor(const std::string& names, int days = 2) const;

private:
    TemporaryFolder folder;
    QList<QSslCertificate> itself;
};

} // namespace glidemap::test
