# shellcheck shell=bash disable=SC2034,SC2154 # lab/launch sets and uses the rest
# Sourced by lab/launch: the one way to write below a device, or to have a sandbox mount something there. A device may
# come from anywhere, and its programs may have put links where the launcher wants directories and files: links that
# lead out of the router. They are refused.

# Both set `target` to where this machine has a path of the router. The directory, or the one around the file, is there
# afterwards; the file may be missing, or be none of the launcher's, and is replaced, never written.
directory_inside() {
  local part parts
  # As every router has it, /lib is a link to /usr/lib, and /lib64 to /usr/lib64.
  case $1/ in /lib/* | /lib64/*) target=$device/usr ;; *) target=$device ;; esac
  IFS=/ read -ra parts <<<"${1#/}"
  for part in "${parts[@]}"; do
    target+=/$part
    refuse_link "$target"
    [[ -d $target ]] || mkdir "$target" 2>/dev/null || fail "cannot make the directory $target; --fresh makes it anew"
  done
}

file_inside() {
  directory_inside "${1%/*}"
  target+=/${1##*/}
  refuse_link "$target"
  [[ ! -d $target ]] || fail "$target is a directory where a file belongs; --fresh makes it anew"
}

refuse_link() {
  [[ ! -L $1 ]] || fail "$1 is a link and may lead out of the router; --fresh makes it anew"
}
