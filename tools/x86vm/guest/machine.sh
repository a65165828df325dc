# shellcheck shell=bash
# shellcheck disable=SC2034,SC2054,SC2154 # machine is for the sourcing script, which sets here and image; QEMU's commas
# The emulated machine, the same for making the image and for running a job.
# Sourced; sets machine=() from: image (folder), mode, disk options, ports.

# A machine is saved while it is stopped (pages of a running one get lost here)
# and must run when loaded: so "stopped" is not among what is saved.
# No SMAP: this emulator (7.2) does a user-mode IRET, with which Wine starts every
# 32-bit thread, as a kernel access to the stack, and SMAP makes that a fault that
# kills the thread. No LA57 and no PKU: shorter page walks, less to save. No fast string
# operations and no AVX: kernel and libraries would copy and clear memory by what is slowest here.
machine_arguments() { # MODE DISK_OPTIONS IN_DISK OUT_DISK STDOUT STDERR CONSOLE
    machine=(
        -machine pc -accel tcg,thread=multi,tb-size=512 -cpu max,smap=off,la57=off,pku=off,erms=off,fsrm=off,avx=off,avx2=off -smp 2 -m 2048
        -global migration.store-global-state=off
        -nodefaults -no-user-config -display none -vga none -nic none -no-reboot
        -kernel "$image/vmlinuz" -initrd "$image/initrd"
        -append "console=ttyS0 quiet panic=-1 mitigations=off nopti nowatchdog audit=0 apparmor=0 selinux=0 cryptomgr.notests random.trust_cpu=on no_timer_check clocksource=hpet x86vm.mode=$1"
        -chardev "file,id=console,path=$7" -serial chardev:console
        -drive "if=none,id=root,format=raw,cache=unsafe,$2"
        -device virtio-blk-pci,drive=root,addr=4
        -drive "if=none,id=in,format=raw,readonly=on,file=$3"
        -device virtio-blk-pci,drive=in,addr=5
        -drive "if=none,id=out,format=raw,cache=unsafe,file=$4"
        -device virtio-blk-pci,drive=out,addr=6
        -device virtio-serial-pci,addr=7
        -chardev "file,id=stdout,path=$5" -device virtserialport,chardev=stdout,name=stdout
        -chardev "file,id=stderr,path=$6" -device virtserialport,chardev=stderr,name=stderr
    )
}

# Job and answer disks have one size for ever: a saved machine remembers it.
empty_disk() { truncate -s 8G "$1"; }

# A saved machine only continues in the emulator, and with the devices, that it was saved with.
machine_fingerprint() {
    { qemu-system-x86_64 --version; cat "$here/guest/machine.sh" "$image/vmlinuz" "$image/initrd"; } | sha256sum | cut -c1-16
}
