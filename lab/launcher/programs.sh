# shellcheck shell=bash disable=SC2154 # lab/launch sets the rest
# Sourced by lab/launch: what the router has of this machine's and of the build's programs.

# For programs built for 64-bit Arm.
emulator=/usr/bin/qemu-aarch64-static
arm_root=/usr/aarch64-linux-gnu

is_foreign() { [[ $(uname -m) != aarch64 && $(od -An -tx1 -j18 -N1 "$1") == ' b7' ]]; }

# A program of the build as this machine can run it: itself, or a wrapper that emulates.
runnable() {
  local program=$1 wrapper=$build/lab/emulated/${1##*/}
  if is_foreign "$program"; then
    mkdir -p "${wrapper%/*}"
    printf '#!/bin/sh\nexec %s -L %s %s "$@"\n' "$emulator" "$arm_root" "$program" >"$wrapper.$$"
    chmod 755 "$wrapper.$$" && mv "$wrapper.$$" "$wrapper"
    program=$wrapper
  fi
  printf '%s\n' "$program"
}

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
    if [[ -x $build/lab/bin/$tool ]]; then
      programs[/usr/bin/$tool]=$(runnable "$build/lab/bin/$tool")
    elif found=$(find_tool $tool); then
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
  applets=$build/lab/applets
  make_applets "$busybox"
}
