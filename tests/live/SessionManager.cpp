// A session manager (X Session Management Protocol) for one program: writes where it can be reached
// as a line to the descriptor that its argument names; told so by SIGUSR1 it ends the session as at
// a log-out. Its status is 0 once the program has saved its state and taken its leave.

#include <X11/SM/SMlib.h>
#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

volatile std::sig_atomic_t ending = 0;
SmsConn program = nullptr;
bool registered = false;
bool saving = false;
bool saved = false;
bool gone = false;

Status enrol(SmsConn connection, SmPointer, char* previousId) {
    std::free(previousId);
    char* id = SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, id);
    std::free(id);
    return registered = true;
}

void freeStrings(int count, char** strings) {
    for (int i = 0; i < count; ++i)
        std::free(strings[i]);
    std::free(strings);
}

Status accept(SmsConn connection, SmPointer, unsigned long* mask, SmsCallbacks* callbacks, char**) {
    program = connection;
    std::memset(callbacks, 0, sizeof *callbacks);
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client.callback = enrol;
    callbacks->interact_request.callback = [](SmsConn c, SmPointer, int) { SmsInteract(c); };
    callbacks->interact_done.callback = [](SmsConn, SmPointer, Bool) {};
    callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {
    };
    callbacks->save_yourself_phase2_request.callback = [](SmsConn c, SmPointer) {
        SmsSaveYourselfPhase2(c);
    };
    callbacks->save_yourself_done.callback = [](SmsConn, SmPointer, Bool) { saved = true; };
    callbacks->close_connection.callback = [](SmsConn, SmPointer, int count, char** reasons) {
        SmFreeReasons(count, reasons);
        gone = true;
    };
    callbacks->set_properties.callback = [](SmsConn, SmPointer, int count, SmProp** properties) {
        for (int i = 0; i < count; ++i)
            SmFreeProperty(properties[i]);
        std::free(properties);
    };
    callbacks->delete_properties.callback = [](SmsConn, SmPointer, int count, char** names) {
        freeStrings(count, names);
    };
    callbacks->get_properties.callback = [](SmsConn c, SmPointer) {
        SmsReturnProperties(c, 0, nullptr);
    };
    return 1;
}

// One step further on the way out, once the one before is done.
void proceed() {
    if (registered && !saving) {
        saving = true;  // as every newcomer is asked to (XSMP, section 5)
        SmsSaveYourself(program, SmSaveLocal, False, SmInteractStyleNone, False);
    } else if (ending == 1 && saved) {
        ending = 2;
        saved = false;
        SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleNone, False);
    } else if (ending == 2 && saved) {
        ending = 3;
        SmsDie(program);
    }
}

}  // namespace

int main(int argc, char** argv) {
    char problem[256] = "";
    int listeners = 0;
    IceListenObj* listening = nullptr;
    const auto anybody = [](char*) -> Bool { return True; };
    if (argc < 2 ||
        !SmsInitialize("tests", "1", accept, nullptr, anybody, sizeof problem, problem) ||
        !IceListenForConnections(&listeners, &listening, sizeof problem, problem)) {
        return 1;
    }
    for (int i = 0; i < listeners; ++i)
        IceSetHostBasedAuthProc(listening[i], anybody);
    std::signal(SIGUSR1, [](int) { ending = 1; });
    const std::string address = std::string(IceComposeNetworkIdList(listeners, listening)) + '\n';
    if (write(std::atoi(argv[1]), address.data(), address.size()) < 0) return 1;

    std::vector<pollfd> waiting(static_cast<std::size_t>(listeners) + 1, pollfd{-1, POLLIN, 0});
    for (int i = 0; i < listeners; ++i)
        waiting[static_cast<std::size_t>(i)].fd = IceGetListenConnectionNumber(listening[i]);
    IceConn connection = nullptr;
    while (!gone) {
        waiting.back().fd = connection ? IceConnectionNumber(connection) : -1;
        poll(waiting.data(), waiting.size(), 20);
        for (int i = 0; i < listeners; ++i) {
            IceAcceptStatus status = IceAcceptSuccess;
            if (waiting[static_cast<std::size_t>(i)].revents)
                connection = IceAcceptConnection(listening[i], &status);
        }
        if (connection && waiting.back().revents &&
            IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesSuccess) {
            return 1;
        }
        proceed();
    }
    return ending == 3 ? 0 : 1;
}
