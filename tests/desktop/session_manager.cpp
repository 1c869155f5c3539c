// A session manager for one program. It writes the address for SESSION_MANAGER, then "registered", and "saved" each
// time that the program has saved its state. It obeys the lines "shutdown", "cancel" and "die".
#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
#include <poll.h>

#include <iostream>
#include <string>

namespace {

SmsConn client = nullptr;

void Say(const char* what) { std::cout << what << std::endl; }

/// Answers only those messages of the protocol that Qt sends.
Status Welcome(SmsConn connection, SmPointer, unsigned long* answered, SmsCallbacks* answers, char**) {
  client = connection;
  *answers = {};
  *answered = ~0UL;
  answers->register_client.callback = [](SmsConn conn, SmPointer, char*) {
    SmsRegisterClientReply(conn, SmsGenerateClientID(conn));
    Say("registered");
    return Status{1};
  };
  answers->save_yourself_done.callback = [](SmsConn, SmPointer, Bool) { Say("saved"); };
  answers->close_connection.callback = [](SmsConn, SmPointer, int, char**) { client = nullptr; };
  answers->set_properties.callback = [](SmsConn, SmPointer, int, SmProp**) {};
  answers->delete_properties.callback = [](SmsConn, SmPointer, int, char**) {};
  return 1;
}

void Obey(const std::string& command) {
  if (command == "shutdown") SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleAny, False);
  if (command == "cancel") SmsShutdownCancelled(client);
  if (command == "die") SmsDie(client);
}

}  // namespace

int main() {
  char error[256];
  int count = 0;
  IceListenObj* places = nullptr;
  const auto admit = [](char*) { return Bool{True}; };
  SmsInitialize("Celestrix", "1", Welcome, nullptr, admit, sizeof error, error);
  if (IceListenForConnections(&count, &places, sizeof error, error) == 0) Say(error);
  IceSetIOErrorHandler([](IceConn) {});  // or the end of the program would end the session manager
  IceListenObj place = places[count - 1];
  IceSetHostBasedAuthProc(place, admit);
  Say(IceComposeNetworkIdList(1, &place));
  IceConn program = nullptr;
  for (std::string command;;) {
    pollfd sources[] = {{0, POLLIN, 0},
                        {IceGetListenConnectionNumber(place), POLLIN, 0},
                        {program != nullptr ? IceConnectionNumber(program) : -1, POLLIN, 0}};
    poll(sources, 3, -1);
    if (sources[0].revents != 0) {
      if (!std::getline(std::cin, command)) return 0;
      Obey(command);
    }
    IceAcceptStatus accepted;
    if (sources[1].revents != 0) program = IceAcceptConnection(place, &accepted);
    if (sources[2].revents != 0 && IceProcessMessages(program, nullptr, nullptr) != IceProcessMessagesSuccess)
      program = nullptr;
  }
}
