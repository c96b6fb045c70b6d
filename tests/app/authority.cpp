#include "authority.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QStringList>

namespace glidemap::test {

namespace {

void openssl(const QString& folder, const QStringList& arguments) {
    QProcess program;
    program.setWorkingDirectory(folder);
    program.start("openssl", arguments);
    EXPECT_TRUE(program.waitForFinished() && program.exitCode() == 0)
        << arguments.join(' ').toStdString() << ": "
        << program.readAllStandardError().toStdString();
}

QStringList newKey(const QString& name) {
    return {"req",    "-newkey", "ec",          "-pkeyopt", "ec_paramgen_curve:prime256v1",
            "-nodes", "-keyout", name + ".key", "-subj",    "/CN=" + name};
}

// Newer versions of openssl refuse a negative number of days and accept dates, which older versions
// do not support.
bool takesDates() {
    QProcess program;
    program.start("openssl", {"x509", "-help"});
    EXPECT_TRUE(program.waitForFinished());
    return program.readAllStandardError().contains("-not_after");
}

QStringList validFor(int days) {
    if (days < 0 && takesDates()) {
        return {"-not_before", "20200101000000Z", "-not_after", "20200102000000Z"};
    }
    return {"-days", QString::number(days)};
}

} // namespace

Authority::Authority() {
    const auto place = QString::fromStdString(folder.path().string());
    openssl(place,
            newKey("authority") + QStringList{"-x509", "-days", "2", "-out", "authority.pem"});
    itself = QSslCertificate::fromPath(place + "/authority.pem");
    EXPECT_EQ(itself.size(), 1);
}

Identity Authority::vouchFor(const std::string& names, int days) const {
    const auto place = QString::fromStdString(folder.path().string());
    folder.write("extensions", "subjectAltName=" + names + "\n");
    openssl(place, newKey("server") + QStringList{"-out", "server.request"});
    openssl(place, QStringList{"x509", "-req", "-in", "server.request", "-CA", "authority.pem",
                               "-CAkey", "authority.key", "-CAcreateserial", "-extfile",
                               "extensions", "-out", "server.pem"} +
                       validFor(days));
    QFile key(place + "/server.key");
    EXPECT_TRUE(key.open(QIODevice::ReadOnly));
    Identity identity{QSslCertificate::fromPath(place + "/server.pem").value(0),
                      QSslKey(&key, QSsl::Ec, QSsl::Pem)};
    EXPECT_FALSE(identity.certificate.isNull() || identity.key.isNull());
    return identity;
}

} // namespace glidemap::test
