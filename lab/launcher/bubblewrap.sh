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

enter_bubblewrap() {
  local place view=(
    --bind "$device" / "${namespaces[@]}" --ro-bind "$device/rom" /rom --ro-bind "$applets" /bin
    --ro-bind /usr/lib /usr/lib --ro-bind-try /usr/lib64 /usr/lib64
    --ro-bind-try /usr/libexec/valgrind /usr/libexec/valgrind
    --ro-bind "$tools" "$tools" --ro-bind "$build" "$build"
  )
  for place in "${!programs[@]}"; do
    view+=(--ro-bind "${programs[$place]}" "$place")
  done
  [[ -z $emulator ]] || view+=(--ro-bind "$emulator" "$emulator" --ro-bind "$foreign_root" "$foreign_root")
  environment+=(KOVA_LAB_NETWORK=own)
  run "$(find_tool bwrap)" "${view[@]}" --chdir / -- /bin/sh /sbin/lab-init "$@"
}
