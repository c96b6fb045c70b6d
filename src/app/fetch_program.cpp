#include "app/fetch_program.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTimer>
#include <optional>
#include <utility>

namespace glidemap {

namespace {

using Done = std::function<void(const Fetched&)>;

// One fetch, from starting the helper to calling `done`.
class Request : public QObject {
public:
    explicit Request(Done done) : QObject(QCoreApplication::instance()), done(std::move(done)) {
        beforehand.setSingleShot(true);
        connect(&beforehand, &QTimer::timeout, this,
                [this] { process.start(QIODevice::ReadOnly); });
        afterwards.setSingleShot(true);
        connect(&afterwards, &QTimer::timeout, this, [this] { report(); });
        // When the application quits, no object waits for the result any more.
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
        beforehand.start(rest);
    }

private:
    Fetched outcome() {
        Fetched what;
        what.body = process.readAllStandardOutput().toStdString();
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
            const QByteArray said = process.readAllStandardError().trimmed();
            what.transportError =
                said.isEmpty() ? "exited without an error message" : said.toStdString();
        }
        return what;
    }

    void finish(Fetched what) {
        if (!fetched) {
            fetched = std::move(what);
            afterwards.start(0);
        }
    }

    // Moves the members out before calling the callback. The callback may show an alert, and if the
    // program quits while the alert is open, this object is deleted.
    void report() {
        const Done then = std::move(done);
        const Fetched what = std::move(*fetched);
        deleteLater();
        then(what);
    }

    Done done;
    std::optional<Fetched> fetched;
    QTimer beforehand;
    QTimer afterwards;
    QProcess process;
};

} // namespace

Fetch fetchByProgram(std::filesystem::path program, std::chrono::milliseconds rest) {
    return [program = std::move(program), rest](const std::string& url, Done done) {
        (new Request(std::move(done)))->begin(program, url, rest);
    };
}

std::filesystem::path installedFetchProgram() {
    const std::filesystem::path programs(QCoreApplication::applicationDirPath().toStdString());
    if (!programs.is_absolute()) {
        return {}; // the path of this program is unknown, so the helper cannot be started
    }
    return programs.parent_path() / GLIDEMAP_HELPERS / "glidemap-fetch";
}

} // namespace glidemap
