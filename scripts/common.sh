# Sourced by ./run and ./test. Sets root; everything here prints to standard error only.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# require_packages LIST...: installs what is missing of the packages in scripts/packages-LIST.
require_packages() {
    local list names missing
    for list in "$@"; do
        names+=" $(grep -v '^#' "$root/scripts/packages-$list")"
    done
    # shellcheck disable=SC2086
    missing=$(comm -23 <(printf '%s\n' $names | sort -u) \
        <(dpkg-query -W -f='${Package} ${db:Status-Status}\n' $names 2>/dev/null |
            awk '$2 == "installed" { print $1 }' | sort -u))
    [ -z "$missing" ] && return 0

    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "Installing:" $missing >&2
    {
        "${as_root[@]}" apt-get update -q
        # shellcheck disable=SC2086
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends $missing
    } >&2
}

# build PRESET [TARGET...]: configures the first time, then builds what has changed, all of it or the targets.
build() {
    local preset=$1 tree="$root/build/$1"
    shift
    if [ ! -e "$tree/build.ninja" ]; then
        (cd "$root" && cmake --preset "$preset" --log-level=NOTICE) >&2
    fi
    cmake --build "$tree" ${1+--target "$@"} -- --quiet >&2
}
