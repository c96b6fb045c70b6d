// Writes pictures of all windows and states of the interface, and a page that shows them:
//
//   glidemap-screenshots [--brief] FOLDER
//
// Each state appears in both languages, light and dark, at scales 1 and 2. The pictures show the
// real widgets with fake services, without a display, and are reproducible. --brief writes only a
// few. Fails if a picture cannot be written or is blank.
//
// A process has one scale for its lifetime, so a second process writes the pictures at scale 2.
#include "core/lang.h"
#include "screenshots/album.h"
#include "screenshots/photograph.h"
#include "screenshots/scene.h"
#include "ui/theme/application_icon.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <fstream>
#include <iostream>

namespace {

using namespace glidemap;
using namespace glidemap::screenshots;

constexpr const char* scaleVariable = "QT_SCALE_FACTOR";

std::vector<Variant> variants(bool brief) {
    if (brief) {
        return {{"en", ColorScheme::light}, {"zh", ColorScheme::dark}};
    }
    return {{"en", ColorScheme::light},
            {"en", ColorScheme::dark},
            {"zh", ColorScheme::light},
            {"zh", ColorScheme::dark}};
}

std::vector<Scene> scenes(bool brief) {
    std::vector<Scene> all;
    for (const auto& some :
         {settingsScenes(), editorScenes(), menuAndAlertScenes(), drawingScenes()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    if (brief) {
        std::erase_if(all, [](const Scene& scene) { return !scene.inBrief; });
    }
    return all;
}

// An offscreen display with room for every window at both scales.
bool useDisplayInMemory(const QTemporaryDir& folder) {
    const std::string file = folder.filePath("display.json").toStdString();
    std::ofstream description(file);
    description << R"({"screens": [{"name": "memory", "x": 0, "y": 0, "width": 3600, "height": 2400,
                       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
    description.close();
    qputenv("QT_QPA_PLATFORM", QByteArray("offscreen:configfile=") + file.c_str());
    return description.good();
}

// Suppresses warnings about missing features of the offscreen display, which do not affect
// pictures.
void passOn(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith("This plugin does not support")) {
        std::cerr << message.toStdString() << '\n';
    }
}

// Removes differences between machines, and animations.
void settleAppearance(QApplication& application) {
    QApplication::setFont(QFont("Inter"));
    QApplication::setCursorFlashTime(0);
    QApplication::setWindowIcon(applicationIcon());
    Theme::shared().applyTo(application);
    Theme::shared().pinReducedMotion(true);
    Theme::shared().pinCompositing(true);
}

void photographAll(Album& album, bool brief) {
    for (const Scene& scene : scenes(brief)) {
        for (const Variant& variant : variants(brief)) {
            Lang::shared().setCode(variant.language);
            Theme::shared().pin(variant.scheme);
            album.add(scene, variant);
        }
    }
}

void startSharperHalf(QProcess& process, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(scaleVariable, "2");
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QApplication::applicationFilePath(), arguments);
}

bool succeeded(QProcess& process) {
    return process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

int run(QApplication& application, const QString& folder, bool brief) {
    const bool isSharperHalf = qEnvironmentVariable(scaleVariable) == "2";
    settleAppearance(application);
    QProcess other;
    if (!isSharperHalf) {
        startSharperHalf(other, QApplication::arguments().mid(1));
    }
    Album album(folder.toStdString(), application.devicePixelRatio());
    photographAll(album, brief);
    if (isSharperHalf) {
        return album.failures() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    const bool bothDone = succeeded(other);
    album.writePage();
    return bothDone && album.failures() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int count, char** arguments) {
    // The stages use test expectations; a failed one must abort.
    testing::FLAGS_gtest_throw_on_failure = true;
    testing::InitGoogleTest(&count, arguments);
    const QTemporaryDir folder;
    if (!useDisplayInMemory(folder)) {
        std::cerr << "glidemap-screenshots: no room for temporary files\n";
        return EXIT_FAILURE;
    }
    qInstallMessageHandler(passOn);
    QApplication application(count, arguments);
    QStringList left = QApplication::arguments().mid(1);
    const bool brief = left.removeAll("--brief") > 0;
    if (left.size() != 1) {
        std::cerr << "usage: glidemap-screenshots [--brief] FOLDER\n";
        return 2;
    }
    return run(application, left.front(), brief);
}
