# Sourced by ./run and ./test. Sets root; everything here prints to standard error only.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

is_known() { dpkg-query -W "$1" || apt-cache show "$1"; } >/dev/null 2>&1

# names_of LIST...: a package for each line of scripts/packages-LIST; of alternatives, "new | old (<< 2)", the first
# that is installed or known to apt.
names_of() {
    local list line name names
    for list in "$@"; do
        while IFS= read -r line; do
            IFS='|' read -r -a names <<<"${line//[[:space:]]/}"
            names=("${names[@]%%(*}")
            for name in "${names[@]}"; do
                if [ "${#names[@]}" -eq 1 ] || is_known "$name"; then break; fi
            done
            echo "$name"
        done < <(grep -v '^#' "$root/scripts/packages-$list")
    done
}

# missing_of LIST...: those that are not installed.
missing_of() {
    local names
    names=$(names_of "$@" | sort -u)
    # shellcheck disable=SC2086
    comm -23 <(echo "$names") <(dpkg-query -W -f='${Package} ${db:Status-Status}\n' $names 2>/dev/null |
        awk '$2 == "installed" { print $1 }' | sort -u)
}

# require_packages LIST...: installs what is missing of the packages in scripts/packages-LIST.
require_packages() {
    [ -n "$(missing_of "$@")" ] || return 0
    local as_root=() missing
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    {
        "${as_root[@]}" apt-get update -q
        missing=$(missing_of "$@") # apt may have heard of an alternative just now
        echo "Installing:" $missing
        # shellcheck disable=SC2086
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends $missing
    } >&2
}

# build PRESET [TARGET...]: configures when the presets are new, then builds what has changed, all of it or the targets. Shows
# the progress on a terminal, in one line: Qt's tools would break it with warnings about a locale other than UTF-8.
build() {
    local preset=$1 tree="$root/build/$1" options=(--quiet)
    local -x LC_ALL=C.UTF-8
    shift
    [ ! -t 2 ] || options=()
    if [ ! "$tree/build.ninja" -nt "$root/CMakePresets.json" ]; then
        (cd "$root" && cmake --preset "$preset" --log-level=NOTICE) >&2
    fi
    cmake --build "$tree" ${1+--target "$@"} -- "${options[@]}" >&2
}
