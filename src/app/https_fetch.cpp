#include "app/https_fetch.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>
#include <utility>

namespace glidemap {

namespace {

using Done = std::function<void(const Fetched&)>;

constexpr int maxRedirects = 10;
constexpr qint64 readAtOnce = 64L * 1024;

QNetworkRequest requestFor(const QUrl& url, const HttpsFetchSetup& setup) {
    using Request = QNetworkRequest;
    Request request(url);
    request.setHeader(Request::UserAgentHeader, "Glidemap/" GLIDEMAP_VERSION);
    // Disable compression: a small compressed body could expand to a very large one.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(Request::CacheLoadControlAttribute, Request::AlwaysNetwork);
    request.setAttribute(Request::CacheSaveControlAttribute, false);
    request.setAttribute(Request::CookieLoadControlAttribute, Request::Manual);
    request.setAttribute(Request::CookieSaveControlAttribute, Request::Manual);
    request.setAttribute(Request::AuthenticationReuseAttribute, Request::Manual);
    request.setAttribute(Request::Http2AllowedAttribute, false);
    request.setAttribute(Request::RedirectPolicyAttribute, Request::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(maxRedirects);
    QSslConfiguration security = QSslConfiguration::defaultConfiguration();
    if (!setup.authorities.isEmpty()) {
        security.setCaCertificates(setup.authorities);
    }
    request.setSslConfiguration(security);
    return request;
}

// Whether the error stands for an HTTP status. Qt reports any status of 400 and above as a network
// error in one of these two ranges.
bool isStatus(QNetworkReply::NetworkError error) {
    return (error >= QNetworkReply::ContentAccessDenied &&
            error <= QNetworkReply::UnknownContentError) ||
           (error >= QNetworkReply::InternalServerError &&
            error <= QNetworkReply::UnknownServerError);
}

// Whether the reply is a redirect that was not followed. Its body must be discarded, because it is
// not the requested file.
bool isRefusedRedirect(QNetworkReply::NetworkError error) {
    return error == QNetworkReply::InsecureRedirectError ||
           error == QNetworkReply::TooManyRedirectsError ||
           error == QNetworkReply::ProtocolUnknownError;
}

// One fetch, from the request to its result. Each fetch has its own QNetworkAccessManager, because
// destroying the manager also ends its network thread.
class Exchange : public QObject {
public:
    Exchange(HttpsFetchSetup setup, Done done);

    void begin(const QUrl& url);

private:
    void ask(const QUrl& url);
    void limit(QTimer& timer, std::chrono::milliseconds time, const char* reason);
    void receiveHeader();
    void receive();
    void giveUp(const QString& reason);
    void finish();
    Fetched outcome() const;

    const HttpsFetchSetup setup;
    Done done;
    QNetworkAccessManager manager;
    QNetworkReply* reply = nullptr;
    QTimer soon;
    QTimer silence;
    QTimer whole;
    QByteArray body;
    bool tooLarge = false;
    QString reason; // why this class aborted the transfer
};

Exchange::Exchange(HttpsFetchSetup setup, Done done)
    : setup(std::move(setup)), done(std::move(done)) {
    // When the application quits, no object waits for the result any more.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            [this] { delete this; });
}

// Defers the request to the event loop. The first request loads the TLS libraries, which would
// delay the caller's startup.
void Exchange::begin(const QUrl& url) {
    soon.setSingleShot(true);
    soon.callOnTimeout(this, [this, url] { ask(url); });
    soon.start(0);
}

void Exchange::ask(const QUrl& url) {
    reply = manager.get(requestFor(url, setup));
    reply->setReadBufferSize(readAtOnce);
    limit(silence, setup.silence, "the server stopped responding");
    limit(whole, setup.whole, "the transfer timed out");
    connect(reply, &QNetworkReply::metaDataChanged, this, [this] { receiveHeader(); });
    connect(reply, &QNetworkReply::redirected, this, [this] { silence.start(); });
    connect(reply, &QNetworkReply::readyRead, this, [this] { receive(); });
    connect(reply, &QNetworkReply::finished, this, [this] { finish(); });
    if (reply->isFinished()) { // some requests fail before a signal can be connected
        finish();
    }
}

void Exchange::limit(QTimer& timer, std::chrono::milliseconds time, const char* text) {
    timer.setSingleShot(true);
    timer.callOnTimeout(this, [this, text] { giveUp(text); });
    timer.start(time);
}

void Exchange::receiveHeader() {
    silence.start();
    tooLarge = tooLarge ||
               reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > setup.maxBody;
    if (tooLarge) {
        giveUp("the response is too large");
    }
}

void Exchange::receive() {
    silence.start();
    body += reply->readAll();
    tooLarge = tooLarge || body.size() > setup.maxBody;
    if (tooLarge) {
        giveUp("the response is too large");
    }
}

void Exchange::giveUp(const QString& text) {
    if (reason.isEmpty()) {
        reason = text;
        reply->abort();
    }
}

// Destroys the network objects before calling the callback, because the callback may show an alert
// that stays open for a long time.
void Exchange::finish() {
    if (!done) {
        return;
    }
    if (reply->isOpen()) {
        receive();
    }
    connect(
        this, &QObject::destroyed, QCoreApplication::instance(),
        [notify = std::exchange(done, {}), fetched = outcome()] { notify(fetched); },
        Qt::QueuedConnection);
    deleteLater();
}

Fetched Exchange::outcome() const {
    const auto error = reply->error();
    Fetched fetched;
    if (!tooLarge && !isRefusedRedirect(error)) {
        fetched.body = body.toStdString();
    }
    if (!reason.isEmpty()) {
        fetched.transportError = reason.toStdString();
    } else if (error != QNetworkReply::NoError && !isStatus(error)) {
        fetched.transportError = reply->errorString().toStdString();
    }
    return fetched;
}

} // namespace

Fetch httpsFetch(HttpsFetchSetup setup) {
    return [setup = std::move(setup)](const std::string& text, Done done) {
        const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
        if (!url.isValid() || url.scheme() != "https" || url.host().isEmpty()) {
            qFatal("not an address to fetch from: %s", text.c_str());
        }
        (new Exchange(setup, std::move(done)))->begin(url);
    };
}

} // namespace glidemap
