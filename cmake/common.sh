# Sourced by the commands at the top.

say() { printf '%s\n' "$*" >&2; }

# Runs a command, up to three times when it fails: downloads do.
retry() {
  "$@" && return 0
  for pause in 5 20; do
    say "failed; trying again in $pause seconds: $*"
    sleep "$pause"
    "$@" && return 0
  done
  return 1
}

# Runs a command as root; fails without asking where that cannot be.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    sudo -n "$@"
  else
    return 1
  fi
}

is_installed() {
  [ "$(dpkg-query --showformat='${db:Status-Status}' --show "$1" 2>/dev/null)" = installed ]
}

# need PACKAGE...: installs those that are missing; false, with a word on what is missing, when they cannot be installed.
need() {
  missing=
  for package; do
    is_installed "$package" || missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  if ! command -v apt-get >/dev/null; then
    say "these Debian packages are missing, and this is no Debian:$missing"
    return 1
  fi
  say "installing:$missing"
  if ! as_root true; then
    say "that takes root, or sudo without a password: apt-get install$missing"
    return 1
  fi
  retry as_root apt-get update -qq >&2 || return 1
  # shellcheck disable=SC2086
  retry as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >&2
}

# configure PRESET: silent unless it fails.
configure() {
  log=$(cmake --preset "$1" 2>&1) || {
    say "$log"
    return 1
  }
}
