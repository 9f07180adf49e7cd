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

# make_debian_root FOLDER ARCHITECTURE [PACKAGE...]: makes a bare Debian root with these packages, once; false,
# with the reason, where that cannot be.
make_debian_root() {
  root=$1 new=$1.new architecture=$2
  shift 2
  [ ! -e "$root/.ready" ] || return 0
  as_root true || { say 'making a Debian root takes root, or sudo without a password'; return 1; }
  need debootstrap || { say 'debootstrap cannot be installed'; return 1; }
  say "making a Debian root in $root (once)"
  retry bootstrap || { say 'debootstrap failed (no network, or no right to make devices?)'; return 1; }
  if [ $# != 0 ]; then
    retry in_root "$new" apt-get update -qq >&2 || { say 'apt-get update failed in the root'; return 1; }
    retry in_root "$new" apt-get install -y -qq --no-install-recommends "$@" >&2 ||
      { say "$* cannot be installed in the root"; return 1; }
  fi
  in_root "$new" apt-get clean
  as_root rm -rf "$root" && as_root mv "$new" "$root" && as_root touch "$root/.ready"
}

bootstrap() {
  as_root rm -rf "$new" && as_root mkdir -p "$new" &&
    as_root debootstrap --arch="$architecture" --variant=minbase bookworm "$new" >&2
}

# in_root ROOT COMMAND...
in_root() {
  (
    root=$1
    shift
    as_root chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C \
      DEBIAN_FRONTEND=noninteractive "$@"
  )
}

# configure PRESET: silent unless it fails.
configure() {
  log=$(cmake --preset "$1" 2>&1) || {
    say "$log"
    return 1
  }
}
