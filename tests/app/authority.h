// Certificates for a test's own server, created for each test by the openssl program.
//
// Owner:   a test.
// Errors:  a failed creation fails the test.
#pragma once

#include "kit/temporary_folder.h"

#include <QList>
#include <QSslCertificate>
#include <QSslKey>
#include <string>

namespace glidemap::test {

// A server's certificate and its private key.
struct Identity {
    QSslCertificate certificate;
    QSslKey key;
};

class Authority {
public:
    Authority();

    // The authority's own certificate. A client that trusts this certificate accepts servers with
    // certificates from this authority.
    const QList<QSslCertificate>& certificates() const { return itself; }

    // `names` as in openssl's subjectAltName; negative days create an expired certificate.
    Identity vouchFor(const std::string& names, int days = 2) const;

private:
    TemporaryFolder folder;
    QList<QSslCertificate> itself;
};

} // namespace glidemap::test
