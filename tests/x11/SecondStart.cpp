#include "platform/x11/X11SingleInstance.h"
#include "platform/x11/X11StartupNotification.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <string_view>
#include <thread>

// A start of the program, as the tests of the single instance need it. Ends with 10 when another one runs,
// with 20 when it was opened again, else with 30 after two seconds. With the argument "deaf" it listens to
// nothing in its time, which is shorter.
int main(int argc, char* argv[]) {
    constexpr int anotherRuns = 10;
    constexpr int openedAgain = 20;
    constexpr int alone = 30;
    constexpr auto life = std::chrono::milliseconds(2000);
    constexpr auto longLife = std::chrono::milliseconds(10000);
    constexpr auto deafLife = std::chrono::milliseconds(700);

    const QApplication application(argc, argv);
    const auto connection = quillary::X11Connection::open();
    if (!connection) {
        return 1;
    }
    const quillary::X11StartupNotification startup(connection->screenNumber());
    quillary::X11SingleInstance instance(*connection, startup);
    if (!instance.claim()) {
        return anotherRuns;
    }
    const std::string_view manner = argc > 1 ? argv[1] : "";
    if (manner == "deaf") {
        std::this_thread::sleep_for(deafLife);
        return alone;
    }
    int result = alone;
    QObject::connect(&instance, &quillary::SingleInstance::reopened, &instance, [&] {
        result = openedAgain;
        if (manner == "once") {
            QCoreApplication::quit();
        }
    });
    QTimer::singleShot(manner == "once" ? longLife : life, &application, &QCoreApplication::quit);
    QApplication::exec();
    return result;
}
