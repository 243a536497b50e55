#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/SignalWatch.h"
#include "platform/Platform.h"
#include "platform/SingleInstance.h"
#include "platform/select/PlatformSelection.h"

#include <QApplication>
#include <QSessionManager>

#include <csignal>
#include <cstdio>
#include <span>

int main(int argc, char* argv[]) {
    if (const auto answer =
            quillary::answerTo(std::span(argv, static_cast<std::size_t>(argc)), QUILLARY_VERSION)) {
        std::fputs(answer->text.c_str(), answer->status == 0 ? stdout : stderr);
        return answer->status;
    }
    QCoreApplication::setApplicationName(QStringLiteral("Quillary"));
    QGuiApplication::setDesktopFileName(QStringLiteral("quillary"));
    // Docks come and go with the screens: the program goes on without any.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // Writing to a closed log must not end the program other than through its quit path.
    std::signal(SIGPIPE, SIG_IGN);
    quillary::prepareEnvironment();
    if (!quillary::sessionHasWindowSystem()) {
        return 1;
    }
    const QApplication application(argc, argv);

    const auto platform = quillary::makePlatform();
    if (!platform) {
        return 1;
    }
    if (!platform->instance().claim()) {
        return 0;
    }
    const quillary::SignalWatch signalWatch;
    quillary::AppDelegate delegate(*platform);
    QObject::connect(&signalWatch, &quillary::SignalWatch::terminationRequested, &application,
                     &QCoreApplication::quit);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &delegate,
                     &quillary::AppDelegate::applicationWillTerminate);
    QObject::connect(&delegate, &quillary::AppDelegate::terminate, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    // The user's own settings may start the program: a session that restored it as well would start it twice.
    QObject::connect(
        &application, &QGuiApplication::saveStateRequest, &application,
        [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
    delegate.applicationDidFinishLaunching();
    return QApplication::exec();
}
