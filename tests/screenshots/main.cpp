// Writes pictures of all windows and states of the interface, and a page that shows them:
//
//   glidemap-screenshots [--brief] [--only NAME] FOLDER
//
// Each state is rendered in both languages, light and dark, at one and at two pixels per point. The
// program uses the real widgets with fake services and needs no display. Two runs of one build
// produce the same pictures. --brief limits the output to a few pictures, --only to the scenes
// whose name contains NAME. The program fails if a picture cannot be written or is blank.
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
using namespace glidemap::test;

constexpr const char* scaleVariable = "QT_SCALE_FACTOR";

std::vector<PictureVariant> variants(bool brief) {
    if (brief) {
        return {{"en", ColorScheme::light}, {"zh", ColorScheme::dark}};
    }
    return {{"en", ColorScheme::light},
            {"en", ColorScheme::dark},
            {"zh", ColorScheme::light},
            {"zh", ColorScheme::dark}};
}

struct Choice {
    bool brief = false;
    std::string only;
};

std::vector<Scene> scenes(const Choice& choice) {
    std::vector<Scene> all;
    for (const auto& some :
         {settingsScenes(), editorScenes(), menuAndAlertScenes(), drawingScenes()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    std::erase_if(all, [&](const Scene& scene) {
        return (choice.brief && !scene.inBrief) ||
               scene.name.find(choice.only) == std::string::npos;
    });
    return all;
}

// Selects an offscreen display with room for every window at both scales.
bool useDisplayInMemory(const QTemporaryDir& folder) {
    const std::string file = folder.filePath("display.json").toStdString();
    std::ofstream description(file);
    description << R"({"screens": [{"name": "memory", "x": 0, "y": 0, "width": 3600, "height": 2400,
                       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
    description.close();
    qputenv("QT_QPA_PLATFORM", QByteArray("offscreen:configfile=") + file.c_str());
    return description.good();
}

// Suppresses warnings about features that the offscreen display lacks, because they do not affect
// the pictures.
void passOn(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith("This plugin does not support")) {
        std::cerr << message.toStdString() << '\n';
    }
}

// Makes the appearance the same on each machine, and disables animations.
void settleAppearance(QApplication& application) {
    QApplication::setFont(QFont("Inter"));
    QApplication::setCursorFlashTime(0);
    QApplication::setWindowIcon(applicationIcon());
    Theme::shared().applyTo(application);
    Theme::shared().pinReducedMotion(true);
    Theme::shared().pinCompositing(true);
}

void photographAll(Album& album, const Choice& choice) {
    for (const Scene& scene : scenes(choice)) {
        for (const PictureVariant& variant : variants(choice.brief)) {
            Lang::shared().setCode(variant.language);
            Theme::shared().pin(variant.scheme);
            album.add(scene, variant);
        }
    }
}

void startScale2Process(QProcess& process, const QStringList& arguments) {
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

int run(QApplication& application, const QString& folder, const Choice& choice) {
    const bool isSharperHalf = qEnvironmentVariable(scaleVariable) == "2";
    settleAppearance(application);
    QProcess other;
    if (!isSharperHalf) {
        startScale2Process(other, QApplication::arguments().mid(1));
    }
    Album album(folder.toStdString(), application.devicePixelRatio());
    photographAll(album, choice);
    if (isSharperHalf) {
        return album.failures() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    const bool bothDone = succeeded(other);
    album.writePage();
    return bothDone && album.failures() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int count, char** arguments) {
    // The stages contain test expectations. A failed expectation must end the program.
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
    Choice choice{.brief = left.removeAll("--brief") > 0, .only = {}};
    if (left.size() == 3 && left.front() == "--only") {
        choice.only = left[1].toStdString();
        left = {left.back()};
    }
    if (left.size() != 1) {
        std::cerr << "usage: glidemap-screenshots [--brief] [--only NAME] FOLDER\n";
        return 2;
    }
    return run(application, left.front(), choice);
}
