// corvex-gallery: every control of the library in one window.
//
//   corvex-gallery                   the window, to try the controls by hand
//   corvex-gallery --demo            a short unattended demonstration, then a screenshot
//   corvex-gallery --screenshot PATH where the screenshot goes (./corvex-gallery.png)
//   corvex-gallery --values FILE     the INI file Save values and Load values use
//
// Without a display it runs the demonstration on Qt's offscreen platform. The demonstration
// saves and loads a temporary file of its own unless --values names one: it never writes
// over the user's values.

#include <QApplication>
#include <QTemporaryDir>
#include <QTextStream>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

#include "corvex/qt/convert.h"
#include "corvex/qt/host.h"
#include "demo.h"
#include "gallery_window.h"

namespace {

void usage() {
    std::fputs(
        "usage: corvex-gallery [--demo] [--screenshot PATH] [--values FILE]\n"
        "  --demo             run the demonstration and write a screenshot, then exit\n"
        "  --screenshot PATH  where the screenshot goes (default ./corvex-gallery.png)\n"
        "  --values FILE      the INI file Save values and Load values use through\n"
        "                     SettingHandle (default corvex-gallery.ini in\n"
        "                     $XDG_CONFIG_HOME/corvex/ini; the demonstration uses a\n"
        "                     temporary file unless this is given)\n"
        "Without a display the demonstration runs offscreen.\n",
        stdout);
}

}  // namespace

int main(int argc, char** argv) {
    bool demo = false;
    QString screenshot = QStringLiteral("corvex-gallery.png");
    QString values;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--demo") == 0) {
            demo = true;
        } else if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc) {
            screenshot = QString::fromLocal8Bit(argv[++i]);
        } else if (std::strcmp(argv[i], "--values") == 0 && i + 1 < argc) {
            values = QString::fromLocal8Bit(argv[++i]);
        } else if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            usage();
            return 0;
        } else {
            usage();
            return 2;
        }
    }

    // Nowhere to show a window: draw it offscreen and show what it does instead.
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        demo = true;
    }

    // A file-size limit makes a write fail (and the gallery say so) instead of killing it.
    std::signal(SIGXFSZ, SIG_IGN);

    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Corvex"));
    QApplication::setApplicationName(QStringLiteral("corvex-gallery"));
    QApplication::setApplicationDisplayName(QStringLiteral("Corvex gallery"));

    corvex::qt::QtHost host;
    corvex::gallery::GalleryWindow window(host);
    std::unique_ptr<QTemporaryDir> demoFolder;
    if (!values.isEmpty()) {
        window.setValuesFile(values);
    } else if (demo) {
        demoFolder = std::make_unique<QTemporaryDir>();
        if (!demoFolder->isValid()) {
            std::fputs("corvex-gallery: cannot make a temporary folder for the demonstration\n",
                       stderr);
            return 1;
        }
        window.setValuesFile(demoFolder->filePath(QStringLiteral("gallery-values.ini")));
    }
    if (demo) {
        // Nobody is there to answer a box: it is logged and answered with its default.
        host.setMessageBoxHandler([&window](const corvex::MessageBoxRequest& request) {
            const auto layout = corvex::qt::messageBoxLayout(request.style);
            window.log(QStringLiteral("Message box: ") + corvex::qt::messageBoxText(request.text));
            return corvex::qt::messageBoxAnswer(layout.defaultButton);
        });
        return corvex::gallery::runDemo(window, screenshot);
    }
    window.show();
    return QApplication::exec();
}
