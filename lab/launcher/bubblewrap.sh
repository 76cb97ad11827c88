# shellcheck shell=bash disable=SC2154 # lab/launch sets the rest
# Sourced by lab/launch: the sandbox of choice. All namespaces are its own, and nothing of this machine is writable.

namespaces=(
  --unshare-all --die-with-parent --hostname router --uid 0 --gid 0 --cap-add CAP_NET_ADMIN --cap-add CAP_NET_RAW
  --cap-add CAP_SETFCAP # for an ordinary user, without which the internet's hosts have no root of their own
  --proc /proc --dev /dev
)

# Fails, and prints why, where bubblewrap is not there or not allowed what it needs.
bubblewrap_refusal() {
  local bwrap output
  bwrap=$(find_tool bwrap) || { echo "the Debian package bubblewrap is missing" && return 1; }
  output=$("$bwrap" --ro-bind / / "${namespaces[@]}" true 2>&1) && return
  printf '%s\n' "${output%%[$'\n,']*}"
  return 1
}

# show HERE [PLACE]: of this machine's, what the router has to read.
show() {
  if [[ -d $1 ]]; then
    directory_inside "${2:-$1}"
  else
    file_inside "${2:-$1}"
  fi
  view+=(--ro-bind "$1" "${2:-$1}")
}
view=()

furnish_for_bubblewrap() {
  local place
  directory_inside /proc
  directory_inside /dev
  show "$device/rom" /rom
  show "$applets" /bin
  for place in /usr/lib /usr/lib64 /usr/libexec/valgrind "$tools" "$build"; do
    [[ ! -d $place ]] || show "$place"
  done
  for place in "${!programs[@]}"; do
    show "${programs[$place]}" "$place"
  done
  if [[ $emulator ]]; then
    show "$emulator"
    show "$foreign_root"
  fi
}

enter_bubblewrap() {
  environment+=(KOVA_LAB_NETWORK=own)
  run "$(find_tool bwrap)" --bind "$device" / "${namespaces[@]}" "${view[@]}" --chdir / -- /bin/sh /sbin/lab-init "$@"
}
