# shellcheck shell=bash
# shellcheck disable=SC2154 # root is the one of common.sh
# Installs the Debian packages of a list such as packages.txt that are missing; asks the package archive nothing if none is.

as_root() {
    if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}

# listed_packages LIST: the names in a list of packages, without their reasons.
listed_packages() {
    sed -e 's/#.*//' -e 's/[[:space:]]*$//' -e '/^$/d' "$1"
}

# missing_packages NAME...: those of them that aren't installed. A name without an architecture is of the machine's own.
missing_packages() {
    local name own installed
    own=$(dpkg --print-architecture)
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}:${Architecture}\n' "$@" 2>/dev/null) || true
    for name in "$@"; do
        [[ $name == *:* ]] || name="$name:($own|all)"
        grep -Eqx "installed ${name//+/\\+}" <<<"$installed" || printf '%s\n' "${name%%:(*}"
    done
}

# fetch_packages NAME...: installs what of them is missing, with `apt-get update` before. An update that fails for one of
# the machine's archives, perhaps none that matters here, is no reason to stop.
fetch_packages() {
    local missing log=$root/build/packages.log
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    say "Installing ${#missing[@]} Debian packages: ${missing[*]}"
    as_root apt-get update -qq </dev/null >"$log" 2>&1 || say "apt-get update failed; trying with the lists at hand"
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq -o DPkg::Lock::Timeout=120 --no-install-recommends "${missing[@]}" \
        </dev/null >>"$log" 2>&1 || {
        tail -n 20 "$log"
        return 1
    }
}

install_packages() {
    local names
    command -v apt-get >/dev/null || {
        say "No apt-get here: what scripts/packages.txt lists has to be installed by hand."
        return 0
    }
    mapfile -t names < <(listed_packages scripts/packages.txt)
    fetch_packages "${names[@]}" || die "the packages of scripts/packages.txt could not be installed"
}
