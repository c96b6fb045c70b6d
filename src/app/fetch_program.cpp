#include "app/fetch_program.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTimer>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

using Done = std::function<void(const Fetched&)>;

// One fetch, from the request to its end.
class Errand : public QObject {
public:
    explicit Errand(Done then) : QObject(QCoreApplication::instance()), done(std::move(then)) {
        // There is nobody to tell when the program ends.
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                [this] { delete this; });
        connect(&process, &QProcess::finished, this, [this] { finish(outcome()); });
        connect(&process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                finish({{}, process.errorString().toStdString()});
            }
        });
    }

    void begin(const std::filesystem::path& program, const std::string& url,
               std::chrono::milliseconds rest) {
        process.setProgram(QString::fromStdString(program.native()));
        process.setArguments({QString::fromStdString(url)});
        process.setStandardInputFile(QProcess::nullDevice());
        QTimer::singleShot(rest, this, [this] { process.start(QIODevice::ReadOnly); });
    }

private:
    Fetched outcome() {
        Fetched fetched;
        fetched.body = process.readAllStandardOutput().toStdString();
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
            const QByteArray said = process.readAllStandardError().trimmed();
            fetched.transportError =
                said.isEmpty() ? "it ended without a word" : said.toStdString();
        }
        return fetched;
    }

    // Whoever is told may take his time, showing an alert.
    void finish(Fetched fetched) {
        if (!done) {
            return;
        }
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [tell = std::exchange(done, {}), what = std::move(fetched)] { tell(what); },
            Qt::QueuedConnection);
        deleteLater();
    }

    Done done;
    QProcess process;
};

} // namespace

Fetch fetchByProgram(std::filesystem::path program, std::chrono::milliseconds rest) {
    return [program = std::move(program), rest](const std::string& url, Done done) {
        (new Errand(std::move(done)))->begin(program, url, rest);
    };
}

std::filesystem::path installedFetchProgram() {
    std::error_code ignored; // it will not start, then
    const auto self = std::filesystem::read_symlink("/proc/self/exe", ignored);
    return self.parent_path().parent_path() / "libexec" / "glidemap" / "glidemap-fetch";
}

} // namespace glidemap
