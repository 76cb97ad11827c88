# shellcheck shell=bash disable=SC2154 # lab/launch sets the rest
# Sourced by lab/launch: the sandbox for where namespaces are refused. proot gives programs another root directory by
# changing the paths in their system calls, and needs no privileges for it. Processes and network remain this machine's.
# A program of the router could delete or overwrite what is bound into it: so but for the build, /proc and, where it
# cannot be helped, device nodes, the router has copies.

# Fails, and prints why, where proot is not there or not allowed what it needs.
proot_refusal() {
  local proot output
  proot=$(find_tool proot) || { echo "the Debian package proot is missing" && return 1; }
  output=$("$proot" true 2>&1) && return
  printf '%s\n' "${output%%$'\n'*}"
  return 1
}

# install_copy FILE [PLACE]: a copy of this machine's in the router, where bubblewrap leaves an empty file.
install_copy() {
  local target
  file_inside "${2:-$1}"
  [[ ! -s $target || $1 -nt $target ]] || return 0
  cp -L --remove-destination "$1" "$target"
}

# The shared libraries of programs, but for those of the build.
libraries_of() {
  { ldd "$@" 2>/dev/null || true; } | sed -nE 's,^\s(.* => )?(/[^ ]+) \(.*,\2,p' | sort -u |
    while read -r library; do is_around "$build" "$library" || printf '%s\n' "$library"; done
}

# Device nodes are the router's own where this user may make them; else they are bound.
install_devices() {
  local target name directory nodes=(null zero full random urandom tty)
  directory_inside /dev/pts
  directory_inside /dev
  directory=$target
  for name in fd:/proc/self/fd stdin:fd/0 stdout:fd/1 stderr:fd/2 ptmx:pts/ptmx; do
    ln -sfT "${name#*:}" "$directory/${name%:*}" || fail "cannot make the link $directory/${name%:*}"
  done
  bound+=(/dev/pts)
  for name in "${nodes[@]}"; do
    file_inside "/dev/$name"
  done
  if ! is_usable_node "$directory/null"; then
    (cd /dev && cp -a --remove-destination "${nodes[@]}" "$directory") 2>/dev/null || true
  fi
  if ! is_usable_node "$directory/null"; then
    for name in "${nodes[@]}"; do
      rm -f "$directory/$name"
      : >"$directory/$name"
      bound+=("/dev/$name")
    done
  fi
}
is_usable_node() { [[ -c $1 ]] && (: >"$1") 2>/dev/null; }
bound=(/proc)

furnish_for_proot() {
  local place target library
  file_inside /bin/busybox
  [[ -x $target ]] || cp -a --remove-destination "$applets/." "${target%/*}"
  for place in "${!programs[@]}"; do
    install_copy "${programs[$place]}" "$place"
  done
  for library in $(libraries_of "${programs[@]}" "$build/kovadm" "$tools"/lab/bin/* "$1"); do
    install_copy "$library"
  done
  if [[ $emulator ]]; then
    install_copy "$emulator"
    is_around "$build" "$foreign_root" || for library in "$foreign_root"/lib/*.so*; do install_copy "$library"; done
  fi
  install_devices
  for place in "$build" "$tools"; do
    directory_inside "$place"
    bound+=("$place")
  done
}

# proot ends when its last process does. So the router's program is run by a shell that then ends proot, which takes all
# other processes along; its exit status comes back through a file.
enter_proot() {
  local lacking="no interfaces; what is read from them is missing or this machine's"
  local privileges=('--bounding-set=-all,+dac_override' --inh-caps=-all) outcome status=0
  # shellcheck disable=SC2016 # the router's shell expands it
  local session='trap : INT QUIT TERM HUP; "$@" 9>&-; echo $? >&9; kill -QUIT $PPID'
  if grep -q '^KOVA_SANITIZE:[A-Z]*=.' "$build/CMakeCache.txt"; then
    lacking+="; no check for leaks"
    environment+=("ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0")
  fi
  # Where clone3 is refused, as in default containers, proot 5.1 loses a program's heap once it has started another. With
  # room from the beginning the heap need not grow.
  environment+=(KOVA_LAB_NETWORK=none MALLOC_TOP_PAD_=67108864)
  say "the sandbox is proot ($refusal): $lacking"
  setpriv "${privileges[@]}" true 2>/dev/null || privileges=()
  scratch "${TMPDIR:-/tmp}"
  outcome=$new/outcome
  mkdir "$new/shm"
  run setpriv --pdeathsig QUIT "${privileges[@]}" "$(find_tool proot)" -v -1 -0 -r "$device" -w / \
    "${bound[@]/#/--bind=}" "--bind=$new/shm:/dev/shm" /bin/sh -c "$session" sh /bin/sh /sbin/lab-init "$@" 9>"$outcome" || status=$?
  [[ ! -s $outcome ]] || status=$(<"$outcome")
  return "$status"
}
