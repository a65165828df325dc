# shellcheck shell=bash
# Where the machine's files are, for build-image and run32: in the user's cache, so that every clone finds them.
image_folder() { realpath -m "${QUORVANE_X86VM:-${XDG_CACHE_HOME:-$HOME/.cache}/quorvane/x86vm}"; }

# runs_natively: whether this machine's own kernel can be the machine's. It has to run 32-bit code, which a tiny program
# tells, and to give the machine namespaces of its own.
runs_natively() {
    local tiny status=1
    [[ -z ${QUORVANE_X86VM_EMULATE-} ]] || return 1
    tiny=$(mktemp -d)
    # shellcheck disable=SC2016 # immediate operands
    if as --32 -o "$tiny/tiny.o" - <<<'.globl _start; _start: movl $1, %eax; xorl %ebx, %ebx; int $0x80' &&
        ld -m elf_i386 -o "$tiny/tiny" "$tiny/tiny.o" && "$tiny/tiny" && enter_namespaces true; then
        status=0
    fi 2>/dev/null
    rm -rf "$tiny"
    return $status
}

# enter_namespaces COMMAND...: as root, with mounts, processes and a network of its own; its end is that of all that it starts.
enter_namespaces() { as_root unshare --mount --pid --fork --kill-child --net "$@"; }
