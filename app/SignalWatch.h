#pragma once

#include <QObject>

class QSocketNotifier;

namespace quillary {

/// Turns TERM, INT and HUP into a signal on the main thread, so that they end the program as its quit entry
/// does. A process can have one at a time.
class SignalWatch : public QObject {
    Q_OBJECT

public:
    SignalWatch();
    ~SignalWatch() override;

Q_SIGNALS:
    void terminationRequested();

private:
    void receive();

    QSocketNotifier* m_notifier = nullptr;
};

} // namespace quillary
