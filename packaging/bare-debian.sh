# Sourced by test-package and test-release: a bare Debian of their own, in $root, that goes when they end. Needs root,
# debootstrap and the mirror that apt uses here.

cannot() { echo "Not tested: $*" >&2; exit 77; }
fail() { echo "FAILED: $*" >&2; exit 1; }
step() { echo "== $*" >&2; }

# own_namespaces SCRIPT ARGUMENT...: starts the script again where mounts and processes end with it, however it ends.
own_namespaces() {
    [ "$(id -u)" -eq 0 ] || cannot "this takes root, to make a Debian of its own"
    command -v debootstrap >/dev/null || cannot "debootstrap is missing (apt-get install debootstrap)"
    [ -z "${MARROWCUT_OWN_NAMESPACES-}" ] || return 0
    unshare --mount --pid --fork true 2>/dev/null || cannot "this system allows no mounts of one's own"
    MARROWCUT_OWN_NAMESPACES=1 exec unshare --mount --pid --fork --kill-child "$@"
}

remove_place() {
    umount "$root/dev/shm" "$root/dev/pts" "$root/proc" 2>/dev/null || true
    rm -rf --one-file-system "$place"
}

# Debian's archives as apt knows them here, for the given release: address, release, component.
archives() {
    local here
    here=$(. /etc/os-release && echo "$VERSION_CODENAME")
    apt-get indextargets --format '$(ORIGIN)|$(CODENAME)|$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        sed -n "s/^Debian|$here[a-z-]*|//p" | sed "s/ $here/ $1/" | sort -u
}

# bare_debian RELEASE: makes $root in $place; what happens is in $place/log.
bare_debian() {
    local release=$1 mirror
    mirror=$(archives "$release" | awk -v release="$release" '$2 == release && $3 == "main" { print $1; exit }')
    [ -n "$mirror" ] || cannot "apt knows no archive of Debian here"
    place=$(mktemp -d "${TMPDIR:-/var/tmp}/marrowcut-debian-XXXXXX")
    root=$place/root
    trap remove_place EXIT
    debootstrap --variant=minbase "$release" "$root" "$mirror" >"$place/log" 2>&1 || fail "debootstrap: $(tail "$place/log")"
    archives "$release" | sed 's/^/deb /' >"$root/etc/apt/sources.list"
    mount -t proc proc "$root/proc"
    mkdir -p "$root/dev/pts" "$root/dev/shm"
    mount -t devpts -o newinstance,ptmxmode=0666 devpts "$root/dev/pts"
    ln -sf pts/ptmx "$root/dev/ptmx"
    mount -t tmpfs tmpfs "$root/dev/shm"
    inside apt-get update -q >>"$place/log" 2>&1 || fail "apt: $(tail "$place/log")"
}

inside() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root DEBIAN_FRONTEND=noninteractive \
    ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} chroot "$root" "$@"; }
