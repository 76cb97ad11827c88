# shellcheck shell=bash disable=SC2154 # lab/launch sets the rest
# Sourced by lab/launch: the directory that holds a router's files.

# Only a directory with this file in it is a router's, and ever changed, emptied or removed. It says which of the lab's
# files the router was made from.
marker=.kova-router
is_router() { [[ -f $1/$marker && ! -L $1/$marker ]]; }

router_files() {
  tar -C "$lab/router" --sort=name --mtime=@0 --owner=0 --group=0 --numeric-owner --mode=go= -cf - . | sha256sum
}

# Whether a directory is another, or around it.
is_around() { [[ ${2%/}/ == "${1%/}"/* ]]; }

# Settles the device's directory, and writes nothing yet.
choose_device() {
  local place places entry
  [[ -z $ephemeral ]] || return 0
  device=$(realpath -m "${device:-$build/lab/device}")
  places=(/{bin,boot,dev,etc,home,lib,lib64,media,mnt,opt,proc,root,run,sbin,srv,sys,tmp,usr,var})
  mapfile -t places < <(realpath -m "${places[@]}" "${HOME:-/root}" "$repository" "$build")
  for place in "${places[@]}"; do
    ! is_around "$device" "$place" ||
      fail "$device is no place for a router; name an empty or a new directory"
  done
  if [[ -d $device ]] && ! is_router "$device"; then
    entry=$(find "$device" -mindepth 1 -print -quit 2>/dev/null) || fail "cannot read $device"
    [[ -z $entry ]] || fail "$device holds something else than a router; name an empty or a new directory"
  fi
  [[ ! -e $device || -d $device ]] || fail "$device is no directory"
}

# Fills a directory with a router in factory state.
populate() {
  mkdir -p "$1"/{bin,usr/lib,usr/lib64,proc,dev,rom,root}
  cp -a --no-preserve=ownership "$lab/router/." "$1"
  cp -a --no-preserve=ownership "$lab/router/." "$1/rom"
  ln -s usr/lib "$1/lib"
  ln -s usr/lib64 "$1/lib64"
  chmod 755 "$1"
  router_files >"$1/$marker"
}

# Puts a new router in the device's place, in one step.
renew() {
  local router
  scratch "$(dirname "$device")"
  router=$new
  populate "$router"
  if is_router "$device"; then
    scratch "$(dirname "$device")"
    mv -T "$device" "$new" || fail "cannot take $device away"
  fi
  mv -T "$router" "$device" || fail "cannot make a router in $device"
}

# All launches that use a device share a lock on it, and who wants to replace it must have it alone. One launch at a
# time looks and sets up; that lock is on the directory around the device, which stays when the device is replaced.
set_up_device() {
  if [[ $ephemeral ]]; then
    scratch "${TMPDIR:-/tmp}"
    device=$new
    populate "$device"
    furnish "$1"
    return
  fi
  local around setting_up
  around=$(dirname "$device")
  mkdir -p "$around" 2>/dev/null || fail "cannot make $around"
  [[ -r $around ]] || fail "cannot read $around"
  exec {setting_up}<"$around"
  flock -w 60 "$setting_up" || fail "another launch keeps setting up a router in $around"
  if is_router "$device"; then
    [[ -w $device ]] || fail "cannot write in $device"
    exec {in_use}<"$device"
    if [[ $fresh ]]; then
      flock -n "$in_use" || fail "another launch uses $device: --fresh would take its router away"
      renew
    fi
  else
    renew
  fi
  exec {in_use}<"$device"
  flock -s "$in_use"
  [[ $(router_files) == "$(<"$device/$marker")" ]] ||
    say "$device was made from other router files than today's; --fresh makes it anew"
  furnish "$1"
  exec {setting_up}<&-
}
in_use=

# What changes with the build and the sandbox.
furnish() {
  directory_inside /rom
  [[ -d $target/etc ]] || fail "$device has no factory state; --fresh makes it anew"
  # Links, so that kovadm finds the plug-in beside itself, and tools their libraries.
  local program
  directory_inside /usr/bin
  for program in "$build/kovadm" "$tools"/lab/bin/*; do
    [[ ! -x $program ]] || ln -sfT "$program" "$target/${program##*/}" ||
      fail "cannot make the link $target/${program##*/}; --fresh makes it anew"
  done
  "furnish_for_$sandbox" "$1"
}
