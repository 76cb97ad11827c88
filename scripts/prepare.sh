# Sourced by the other scripts: brings the Debian packages that they need. As root or as a user with sudo.
# shellcheck shell=bash

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

say() { printf '\n== %s\n' "$*"; }
fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

BUILD_PACKAGES=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev)
LAB_PACKAGES=(bubblewrap proot busybox-static lua5.1 iproute2)
TEST_PACKAGES=(libgtest-dev googletest libbenchmark-dev valgrind pkgconf g++-aarch64-linux-gnu qemu-user-static)
# The sanitizers and the fuzzers are clang's.
SANITIZER_PACKAGES=(clang libclang-rt-14-dev llvm)
MUSL_PACKAGES=(clang-14 libc++-14-dev lld-14)

# need_packages PACKAGE...: installs those that are missing.
need_packages() {
  local missing=() package
  command -v dpkg-query >/dev/null || fail "this is no Debian system; please install: $*"
  for package in "$@"; do
    [[ $(dpkg-query -W -f '${Status}' "$package" 2>/dev/null) == 'install ok installed' ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0

  local sudo=()
  if ((EUID != 0)); then
    command -v sudo >/dev/null || fail "missing packages, and neither root nor sudo to install them: ${missing[*]}"
    sudo=(sudo)
  fi
  say "Installing ${missing[*]}"
  "${sudo[@]}" apt-get update -qq || fail "apt-get update failed; missing packages: ${missing[*]}"
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
    >/dev/null || fail "could not install: ${missing[*]}"
}

# build PRESET: configures and builds it.
build() {
  say "Building ($1)"
  cmake --preset "$1" >/dev/null || fail "configuring $1 failed"
  cmake --build --preset "$1" -- --quiet || fail "building $1 failed"
}
