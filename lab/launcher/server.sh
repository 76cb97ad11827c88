# shellcheck shell=bash disable=SC2154 # lab/launch sets the rest
# Sourced by lab/launch: the way from the router to one server of this machine, and from this machine to the router's
# port for connection requests. The router's own end is /usr/libexec/lab/server-way. Between the two are sockets in a
# directory that the router cannot write: it can neither put a link there, nor reach anything else by it.

# The port in the factory's ManagementServer.URL.
server_port=7547

# Settles what the way needs, and writes nothing yet.
choose_server() {
  [[ $server ]] || return 0
  [[ $server =~ ^(127(\.[0-9]+){3}|localhost):([0-9]{1,5})$ ]] ||
    fail "--server is ADDRESS:PORT of this machine, as 127.0.0.1:7547"
  socat=$(need socat socat) || exit
  programs[/usr/bin/socat]=$socat
}

# Whether somebody listens at a port of this machine.
is_taken() { grep -qsE ":$(printf %04X "$1") 0{8,32}:0000 0A" /proc/net/tcp /proc/net/tcp6; }

relay() {
  setpriv --pdeathsig TERM "$socat" "$1" "$2" 2>/dev/null &
  relays+=($!)
}

# The router has the same port as this machine, so that its address is true on both sides.
choose_request_port() {
  for ((requests = 7548; requests < 7648; ++requests)); do
    is_taken "$requests" || return 0
  done
  fail "no port from 7548 to 7647 is free for connection requests"
}

open_way_for_bubblewrap() {
  scratch /tmp # whose name fits into a socket's and has nothing that socat reads otherwise
  show "$new" /var/run/lab-server
  relay "UNIX-LISTEN:$new/server,fork,mode=600" "TCP:$server"
  # The router's end waits for the socket to be there. There is one, so connections take turns.
  relay "TCP-LISTEN:$requests,bind=127.0.0.1,reuseaddr,fork" \
    "SYSTEM:flock $new/turn $socat - UNIX-LISTEN\\:$new/requests\\,mode=600\\,accept-timeout=10"
}

# Its network is this machine's; a server at that port is there already.
open_way_for_proot() {
  [[ ${server##*:} != "$server_port" ]] || return 0
  ! is_taken "$server_port" || fail "port $server_port is taken, where the router looks for its server"
  relay "TCP-LISTEN:$server_port,bind=127.0.0.2,reuseaddr,fork" "TCP:$server"
}

open_way_to_server() {
  [[ $server ]] || return 0
  choose_request_port
  environment+=("KOVA_LAB_SERVER=$server" "KOVA_LAB_SERVER_PORT=$server_port" "KOVA_LISTEN=127.0.0.1:$requests")
  "open_way_for_$sandbox"
  say "the router's server is $server; its connection requests go to 127.0.0.1:$requests"
}
