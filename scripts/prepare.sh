# Sourced by the other scripts: brings the Debian packages that they need. As root or as a user with sudo.
# shellcheck shell=bash

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

say() { printf '\n== %s\n' "$*"; }
fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

BUILD_PACKAGES=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev pkgconf
  libcurl4-openssl-dev libpugixml-dev libmicrohttpd-dev) # the last three for kovadm session, and export
LAB_PACKAGES=(bubblewrap proot busybox-static lua5.1 iproute2 socat)
TEST_PACKAGES=(libgtest-dev libbenchmark-dev valgrind chromium python3)
PROCESSOR_PACKAGES=(g++-aarch64-linux-gnu g++-arm-linux-gnueabihf g++-mips-linux-gnu g++-mipsel-linux-gnu
  g++-riscv64-linux-gnu qemu-user-static xz-utils)
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

# build PRESET [TARGET...]: configures it and builds all of it, or the targets.
build() {
  local preset=$1 targets=()
  (($# == 1)) || targets=(--target "${@:2}")
  say "Building ($preset)"
  cmake --preset "$preset" >/dev/null || fail "configuring $preset failed"
  cmake --build --preset "$preset" "${targets[@]}" -- --quiet || fail "building $preset failed"
}
