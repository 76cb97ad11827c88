// udp: datagrams for shell scripts.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr size_t kLargest = 65507;  // what a datagram can carry
constexpr int kPatience = 3000;     // milliseconds

int usage() {
  fputs(
      "usage: udp ask ADDRESS PORT TEXT\n"
      "         sends the text and prints the reply; exit status 1 when none comes within three seconds\n"
      "       udp serve ADDRESS PORT SOURCE PROGRAM [ARG...]\n"
      "         for each datagram that comes from the address SOURCE, or from any for 0.0.0.0, sends back what the\n"
      "         program makes of it; a program that prints nothing sends nothing\n",
      stderr);
  return 2;
}

int fail(const char* what) {
  perror(what);
  return 1;
}

bool parse_address(const char* text, const char* port, sockaddr_in& address) {
  address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<uint16_t>(atoi(port)));
  return inet_aton(text, &address.sin_addr) != 0;
}

const sockaddr* generic(const sockaddr_in& address) { return reinterpret_cast<const sockaddr*>(&address); }

int ask(int socket, const sockaddr_in& server, const std::string& text) {
  if (connect(socket, generic(server), sizeof server) != 0) return fail("udp: connect");
  if (send(socket, text.data(), text.size(), 0) < 0) return fail("udp: send");
  pollfd waiting = {socket, POLLIN, 0};
  std::string reply(kLargest, '\0');
  if (poll(&waiting, 1, kPatience) != 1) return 1;
  const ssize_t length = recv(socket, reply.data(), reply.size(), 0);
  if (length < 0) return 1;
  reply.resize(static_cast<size_t>(length));
  puts(reply.c_str());
  return 0;
}

// What the program prints, given the datagram. A pipe holds either without anyone waiting.
std::string answer(char** program, const std::string& datagram) {
  int question[2];
  int reply[2];
  if (pipe2(question, O_CLOEXEC) != 0 || pipe2(reply, O_CLOEXEC) != 0) exit(fail("udp: pipe"));
  const pid_t child = fork();
  if (child == 0) {
    dup2(question[0], STDIN_FILENO);
    dup2(reply[1], STDOUT_FILENO);
    execvp(program[0], program);
    _exit(fail(program[0]));
  }
  close(question[0]);
  close(reply[1]);
  if (write(question[1], datagram.data(), datagram.size()) < 0) perror("udp: write");
  close(question[1]);
  std::string output;
  char part[4096];
  for (ssize_t length = 0; (length = read(reply[0], part, sizeof part)) > 0;)
    output.append(part, static_cast<size_t>(length));
  close(reply[0]);
  waitpid(child, nullptr, 0);
  return output;
}

int serve(int socket, const sockaddr_in& own, const sockaddr_in& source, char** program) {
  if (bind(socket, generic(own), sizeof own) != 0) return fail("udp: bind");
  signal(SIGPIPE, SIG_IGN);
  for (;;) {
    sockaddr_in peer = {};
    socklen_t peer_size = sizeof peer;
    std::string datagram(kLargest, '\0');
    const ssize_t length =
        recvfrom(socket, datagram.data(), datagram.size(), 0, reinterpret_cast<sockaddr*>(&peer), &peer_size);
    if (length < 0) continue;  // the error of an earlier reply
    if (source.sin_addr.s_addr != INADDR_ANY && peer.sin_addr.s_addr != source.sin_addr.s_addr) continue;
    datagram.resize(static_cast<size_t>(length));
    const std::string reply = answer(program, datagram);
    if (!reply.empty()) sendto(socket, reply.data(), reply.size(), 0, generic(peer), peer_size);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc > 1 ? argv[1] : "";
  sockaddr_in address = {};
  if (argc < 5 || !parse_address(argv[2], argv[3], address)) return usage();
  const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (socket < 0) return fail("udp: socket");
  sockaddr_in source = {};
  if (command == "ask" && argc == 5) return ask(socket, address, argv[4]);
  if (command == "serve" && argc > 5 && parse_address(argv[4], "0", source))
    return serve(socket, address, source, argv + 5);
  return usage();
}
