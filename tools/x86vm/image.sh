# shellcheck shell=bash
# What build-image, run32 and their callers know of the machine: where its files are, and whose kernel it has.

# In the user's cache, so that every clone finds them.
image_folder() { realpath -m "${QUORVANE_X86VM:-${XDG_CACHE_HOME:-$HOME/.cache}/quorvane/x86vm}"; }

# privileged COMMAND...: as root, without a question for a password, which nobody would see.
privileged() {
    if ((EUID == 0)); then "$@"; else sudo -n "$@"; fi
}

# enter_namespaces COMMAND...: as root, with mounts, processes and a network of its own; its end is that of all it starts.
enter_namespaces() { privileged unshare --mount --pid --fork --kill-child --net "$@"; }

# runs_natively: whether this machine's own kernel is the machine's. QUORVANE_X86VM_KERNEL, own or emulated, says so where that
# has been decided; else the kernel has to run 32-bit code, which a tiny program tells, and to allow what the machine takes.
runs_natively() {
    local folder status=1
    case ${QUORVANE_X86VM_KERNEL-} in
    own) return 0 ;;
    emulated) return 1 ;;
    esac
    mkdir -p "$(image_folder)" && folder=$(mktemp -d "$(image_folder)/tiny.XXXXXX") || return 1
    # shellcheck disable=SC2016 # immediate operands; the inner shell's own argument
    if as --32 -o "$folder/tiny.o" - <<<'.globl _start; _start: movl $1, %eax; xorl %ebx, %ebx; int $0x80' &&
        ld -m elf_i386 -o "$folder/tiny" "$folder/tiny.o" && "$folder/tiny" &&
        enter_namespaces sh -ec 'mount -t tmpfs tmpfs "$1"; mkdir "$1/p" "$1/d"; mount -t proc proc "$1/p"
            mount -t devpts -o newinstance devpts "$1/d"; mount --bind "$1" "$1"; mount -o remount,ro,bind "$1"' sh "$folder"; then
        status=0
    fi 2>/dev/null
    rm -rf "$folder"
    return $status
}
