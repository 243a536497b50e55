// A session manager (X Session Management Protocol) for one test. Argument: a file, to which it writes first
// the address for SESSION_MANAGER, then a line for each client that joins and for each restart hint. USR1
// ends the session.

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>
#include <poll.h>

namespace {

std::FILE* record = nullptr;
std::vector<SmsConn> clients;
std::vector<IceConn> connections;
bool ending = false;
volatile std::sig_atomic_t askedToEnd = 0;

void note(const char* what, int number) {
    std::fprintf(record, "%s %d\n", what, number);
    std::fflush(record);
}

Status registerClient(SmsConn client, SmPointer /*data*/, char* previousId) {
    std::free(previousId);
    char* id = SmsGenerateClientID(client);
    SmsRegisterClientReply(client, id);
    std::free(id);
    clients.push_back(client);
    note("joined", static_cast<int>(clients.size()));
    // The protocol has a new client save itself once.
    SmsSaveYourself(client, SmSaveLocal, 0, SmInteractStyleNone, 0);
    return 1;
}

void interactRequest(SmsConn client, SmPointer /*data*/, int /*type*/) {
    SmsInteract(client);
}

void interactDone(SmsConn /*client*/, SmPointer /*data*/, Bool /*cancel*/) {}

void saveYourselfRequest(SmsConn /*client*/, SmPointer /*data*/, int /*type*/, Bool /*shutdown*/,
                         int /*style*/, Bool /*fast*/, Bool /*global*/) {}

void saveYourselfPhase2(SmsConn client, SmPointer /*data*/) {
    SmsSaveYourselfPhase2(client);
}

void saveYourselfDone(SmsConn client, SmPointer /*data*/, Bool /*success*/) {
    if (ending) {
        SmsDie(client);
    } else {
        SmsSaveComplete(client);
    }
}

void closeConnection(SmsConn client, SmPointer /*data*/, int /*count*/, char** /*reasons*/) {
    std::erase(clients, client);
    note("left", static_cast<int>(clients.size()));
}

void setProperties(SmsConn /*client*/, SmPointer /*data*/, int count, SmProp** properties) {
    for (int i = 0; i < count; ++i) {
        if (std::strcmp(properties[i]->name, SmRestartStyleHint) == 0 && properties[i]->num_vals == 1) {
            note("restart hint", *static_cast<const char*>(properties[i]->vals[0].value));
        }
        SmFreeProperty(properties[i]);
    }
    std::free(static_cast<void*>(properties));
}

void deleteProperties(SmsConn /*client*/, SmPointer /*data*/, int /*count*/, char** /*names*/) {}

void getProperties(SmsConn client, SmPointer /*data*/) {
    SmsReturnProperties(client, 0, nullptr);
}

Status newClient(SmsConn /*client*/, SmPointer /*data*/, unsigned long* mask, SmsCallbacks* callbacks,
                 char** /*failure*/) {
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
            SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
            SmsGetPropertiesProcMask;
    callbacks->register_client.callback = registerClient;
    callbacks->interact_request.callback = interactRequest;
    callbacks->interact_done.callback = interactDone;
    callbacks->save_yourself_request.callback = saveYourselfRequest;
    callbacks->save_yourself_phase2_request.callback = saveYourselfPhase2;
    callbacks->save_yourself_done.callback = saveYourselfDone;
    callbacks->close_connection.callback = closeConnection;
    callbacks->set_properties.callback = setProperties;
    callbacks->delete_properties.callback = deleteProperties;
    callbacks->get_properties.callback = getProperties;
    return 1;
}

Bool everybody(char* /*host*/) {
    return 1;
}

void endSession() {
    ending = true;
    for (SmsConn client : clients) {
        SmsSaveYourself(client, SmSaveBoth, 1, SmInteractStyleNone, 0);
    }
}

void serve(int listeners, IceListenObj* listening) {
    std::vector<pollfd> waiting;
    waiting.reserve(static_cast<std::size_t>(listeners) + connections.size());
    for (int i = 0; i < listeners; ++i) {
        waiting.push_back({IceGetListenConnectionNumber(listening[i]), POLLIN, 0});
    }
    for (IceConn connection : connections) {
        waiting.push_back({IceConnectionNumber(connection), POLLIN, 0});
    }
    constexpr int pause = 100;
    if (poll(waiting.data(), waiting.size(), pause) <= 0) {
        return;
    }
    const auto known = connections;
    for (std::size_t i = 0; i < waiting.size(); ++i) {
        if (waiting[i].revents == 0) {
            continue;
        }
        if (i < static_cast<std::size_t>(listeners)) {
            IceAcceptStatus status{};
            if (IceConn connection = IceAcceptConnection(listening[i], &status)) {
                connections.push_back(connection);
            }
        } else {
            IceConn connection = known[i - static_cast<std::size_t>(listeners)];
            if (IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesSuccess) {
                std::erase(connections, connection);
            }
        }
    }
}

} // namespace

int main(int argc, char* argv[]) {
    record = argc == 2 ? std::fopen(argv[1], "w") : nullptr;
    char error[256] = "";
    int listeners = 0;
    IceListenObj* listening = nullptr;
    if (record == nullptr ||
        SmsInitialize("test", "1", newClient, nullptr, everybody, sizeof error, error) == 0 ||
        IceListenForConnections(&listeners, &listening, sizeof error, error) == 0) {
        std::fprintf(stderr, "no session: %s\n", error);
        return 1;
    }
    for (int i = 0; i < listeners; ++i) {
        IceSetHostBasedAuthProc(listening[i], everybody);
    }
    // A client that breaks off is no reason to end.
    IceSetIOErrorHandler([](IceConn /*connection*/) {});
    std::signal(SIGUSR1, [](int) { askedToEnd = 1; });
    std::signal(SIGPIPE, SIG_IGN);
    std::fprintf(record, "%s\n", IceComposeNetworkIdList(listeners, listening));
    std::fflush(record);
    while (true) {
        serve(listeners, listening);
        if (askedToEnd != 0 && !ending) {
            endSession();
        }
    }
}
