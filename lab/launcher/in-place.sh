# shellcheck shell=bash disable=SC2154 # lab/launch sets the rest
# Sourced by lab/launch: no sandbox. This system becomes the router, all but its users and what the kernel does not let
# anyone change.

install_in_place() {
  say "making this system a simulated router, for good"
  rm -rf /rom
  mkdir /rom
  cp -a --no-preserve=ownership "$lab/router/." /rom
  tar -C "$lab/router" --exclude=./sys --exclude=./etc/passwd --exclude=./etc/group -cf - . |
    tar -C / --keep-directory-symlink --no-same-owner -xf -
}

enter_in_place() {
  local tool
  ((EUID == 0)) || fail "--in-place changes the system's own files and needs root"
  environment+=("PATH=$applets:/usr/sbin:/usr/bin:/sbin:/bin" KOVA_LAB_NETWORK=own)
  if ! diff -rq "$lab/router" /rom >/dev/null 2>&1; then
    install_in_place
  elif [[ $fresh || $ephemeral ]]; then
    env -i "${environment[@]}" "$applets/sh" /sbin/lab-reset
  fi
  [[ /usr/bin/lua -ef ${programs[/usr/bin/lua]} ]] || ln -sf "${programs[/usr/bin/lua]}" /usr/bin/lua
  for tool in "$tools"/lab/bin/{uci,ubus} "$build/kovadm"; do
    [[ ! -x $tool ]] || ln -sf "$tool" "/usr/bin/${tool##*/}"
  done
  exec env -i "${environment[@]}" "$applets/sh" /sbin/lab-init "$@"
}
