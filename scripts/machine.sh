# shellcheck shell=bash
# shellcheck disable=SC2154 # root is the one of common.sh
# 32-bit Windows programs for ./run and ./test, in the machine of tools/x86vm.

source tools/x86vm/image.sh
machineFolder=$root/build/machine # what goes into the machine, and comes out of it

# make_machine: the machine is there afterwards. If not, `machineLack` tells why, and the status is 3 where there can't be one.
# shellcheck disable=SC2034,SC2317 # the lack is read where this is called; the function is called by name
make_machine() {
    local log=$root/build/machine.log status=0
    if ((EUID != 0)) && sudo -v; then
        begin /dev/null bash -c 'while sleep 60; do sudo -n -v; done'
    fi
    QUORVANE_X86VM_KERNEL=$(runs_natively && echo own || echo emulated)
    export QUORVANE_X86VM_KERNEL
    build_machine() { tools/x86vm/build-image 2>&1 | tee "$log"; }
    attend build_machine || status=$?
    machineLack=$(tail -n 1 "$log" | sed -e 's/^\[ *[0-9]* s\] *//' -e 's/^failed: //')
    return $status
}

# fill_machine [FILE...]: lays out what goes in: the scripts, the sources, which a test reads, the 32-bit product, and these
# test files, without their debugging information.
# shellcheck disable=SC2119,SC2120 # the files are given by ./test
fill_machine() {
    local file
    # Of a run that was killed files may be left that are root's.
    rm -rf "$machineFolder" 2>/dev/null || privileged rm -rf "$machineFolder" || return
    mkdir -p "$machineFolder/build/x86/tests" || return
    cp -r scripts src "$machineFolder/" || return
    cp -r build/x86/bin "$machineFolder/build/x86/" || return
    for file in "$@"; do
        i686-w64-mingw32-strip -o "$machineFolder/build/x86/tests/$(basename "$file")" "$file" || return
    done
}

# in_machine SECONDS COMMAND...: runs scripts/in_machine.sh there.
in_machine() {
    local seconds=$1
    shift
    tools/x86vm/run32 --seconds "$seconds" "$machineFolder" "scripts/in_machine.sh$(printf ' %q' "$@")"
}

# show_in_machine SECONDS [en|zh]: the 32-bit product there with counters on its line, polling for SECONDS. Its pictures come
# into build/x86/pictures.
show_in_machine() {
    local picture pictures=build/x86/pictures
    # shellcheck disable=SC2119
    fill_machine || return
    in_machine $((300 + $1)) product "$@" || return
    rm -rf "$pictures"
    mkdir -p "$pictures"
    for picture in start polling {help,language,port}-menu message; do
        cp "$machineFolder/build/$picture.png" "$pictures/" || return
    done
}
