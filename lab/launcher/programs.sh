# shellcheck shell=bash disable=SC2154 # lab/launch sets the rest
# Sourced by lab/launch: what the router has of this machine's and of the build's programs.

# Sets `emulator` and `foreign_root`, the program that runs those of the build and the libraries of their processor,
# where they are this machine's and not the build's own.
find_emulator() {
  local words
  IFS=';' read -ra words < <(sed -n 's/^CMAKE_CROSSCOMPILING_EMULATOR:STRING=//p' "$build/CMakeCache.txt") || return 0
  [[ ${words[0]} != /* ]] || return 0
  emulator=$(need qemu-user-static "${words[0]}") || exit
  foreign_root=${words[2]}
}
emulator=
foreign_root=

# BusyBox under all its names, made once for a build.
make_applets() {
  local busybox=$1 applet
  [[ ! -d $applets ]] || return 0
  mkdir -p "$build/lab" 2>/dev/null || fail "cannot write in $build"
  scratch "$build/lab"
  cp "$busybox" "$new/busybox"
  for applet in $("$new/busybox" --list); do
    [[ $applet == busybox ]] || ln -s busybox "$new/$applet"
  done
  chmod 755 "$new"
  mv -T "$new" "$applets" 2>/dev/null || [[ -d $applets ]] || fail "cannot write in $build/lab"
}

# Sets `program` to the router's name of a program: with a path from here, it is one of a build.
place_program() {
  program=$1
  [[ $1 == */* && -f $1 ]] || return 0
  [[ $1 == /* ]] || program=$(realpath -s "$1")
  case $program in
    "$build"/* | "$tools"/* | /bin/* | /etc/* | /lib*/* | /sbin/* | /usr/* | /var/*) ;;
    *) [[ $device && -e $device$program ]] || fail "the router does not see $1: put it below the build, $build" ;;
  esac
}

declare -A programs

# Sets `applets`, and `programs`: where the router has them, and where they are here.
find_programs() {
  local busybox tool found
  busybox=$(need busybox-static busybox) || exit
  found=$(need lua5.1 lua5.1 lua) || exit
  programs[/usr/bin/lua]=$found
  found=$(need iproute2 ip) || exit
  programs[/usr/sbin/ip]=$found
  for tool in uci ubus; do
    if [[ ! -x $tools/lab/bin/$tool ]] && found=$(find_tool $tool); then
      programs[/usr/bin/$tool]=$found
    fi
  done
  if found=$(find_tool valgrind.bin); then
    programs[/usr/bin/valgrind]=$found
  fi
  # Gives the sanitizers' reports the names of functions.
  if found=$(find_tool llvm-symbolizer); then
    programs[/usr/bin/llvm-symbolizer]=$found
    environment+=(ASAN_SYMBOLIZER_PATH=/usr/bin/llvm-symbolizer)
  fi
  find_emulator
  applets=$build/lab/applets
  make_applets "$busybox"
}
