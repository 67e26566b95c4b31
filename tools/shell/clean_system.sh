# shellcheck shell=bash
# shellcheck disable=SC2154  # command_name is set by the command that sources this
# A bare Debian 12 in a folder of its own, and commands run in it as on a machine of its own. Sourced
# by tools/try-package and tools/fresh-machine. Uses tools/shell/manners.sh. Needs root.

readonly release=bookworm

# The lines of a sources.list: this machine's Debian sources, or MIRROR alone if one is given.
debian_sources() {
  if [[ -n $1 ]]; then
    printf 'deb %s %s main\n' "$1" "$release"
  else
    # shellcheck disable=SC2016  # apt-get fills these in
    apt-get indextargets --format '$(SITE) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
      awk -v release="$release" '
        $3 == "main" && ($2 == release || index($2, release "-") == 1) { print "deb", $1, $2, $3 }' |
      sort -u
  fi
}

# make_clean_system FOLDER MIRROR CACHE LOG: puts the system into FOLDER. MIRROR may be empty. CACHE,
# if not empty, is a file that keeps the downloaded packages from one time to the next.
make_clean_system() {
  local folder=$1 mirror=$2 cache=$3 log=$4 sources from=()
  sources=$(debian_sources "$mirror")
  mirror=$(awk -v release="$release" '$3 == release { print $2; exit }' <<<"$sources")
  [[ -n $mirror ]] || fail "this machine has no source of Debian's $release: give --mirror URL"
  if [[ -n $cache ]]; then
    cache=$(readlink -f "$cache")
    if [[ ! -s $cache ]]; then
      debootstrap --variant=minbase --make-tarball="$cache" "$release" "$folder" "$mirror" \
        >>"$log" 2>&1 || { tail -n 20 "$log" >&2; fail "debootstrap failed, see $log"; }
      rm -rf --one-file-system "${folder:?}"/*
    fi
    from=(--unpack-tarball="$cache")
  fi
  debootstrap --variant=minbase "${from[@]}" "$release" "$folder" "$mirror" >>"$log" 2>&1 ||
    { tail -n 20 "$log" >&2; fail "debootstrap failed, see $log"; }
  chmod 755 "$folder"
  printf '%s\n' "$sources" >"$folder/etc/apt/sources.list"
  printf '127.0.0.1 localhost\n' >"$folder/etc/hosts"
  # No service is started: nothing would stop it.
  printf '#!/bin/sh\nexit 101\n' >"$folder/usr/sbin/policy-rc.d"
  chmod +x "$folder/usr/sbin/policy-rc.d"
}

# in_system FOLDER NETWORK COMMAND...: runs it there, with mounts and processes of its own that end
# with it. NETWORK: shared with this machine, or own, which has a loopback and nothing else.
in_system() {
  local folder=$1 network=$2 spaces=(--mount --pid)
  [[ $network == shared ]] || spaces+=(--net)
  shift 2
  # shellcheck disable=SC2016  # for the inner shell
  unshare "${spaces[@]}" --fork --kill-child bash -c '
    folder=$1 network=$2
    shift 2
    [[ $network == shared ]] || ip link set lo up || exit 1
    mount -t proc proc "$folder/proc" && mount --rbind /dev "$folder/dev" &&
      mount -t tmpfs tmpfs "$folder/dev/shm" && mount --rbind /sys "$folder/sys" || exit 1
    exec chroot "$folder" env -i HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
      PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
      ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} "$@"
  ' in_system "$folder" "$network" "$@" </dev/null
}
