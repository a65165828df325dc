#!/bin/bash
# Takes the pictures of the user guide anew: see `scripts/pictures.sh --help`.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

usage() {
    cat <<'END'
scripts/pictures.sh [BIN]
Takes the pictures of docs/user-guide.md and docs/user-guide.zh.md anew, into docs/pictures: starts the program of the
folder BIN (build/x64/bin, which is built before) on a simulated line, on a virtual display, once in each language, and
works it with mouse and keyboard.
END
}

case ${1-} in
--help | -h) usage; exit 0 ;;
esac

source scripts/common.sh
source scripts/wine.sh

finish() {
    trap '' HUP INT TERM
    end_wine
    end_started
}
trap finish EXIT

bin=$(realpath "${1:-build/x64/bin}")
pictures=$root/docs/pictures
trafficLog=$bin/Quorvane.log
shot=$scratch/shot.png

# send_command NUMBER: as from the program's own menus. COM Setting has no entry in any of them.
make_sender() {
    x86_64-w64-mingw32-g++-posix -static -o "$scratch/send.exe" -x c++ - <<'END'
#include <windows.h>
#include <cstdlib>
int main(int, char** arguments) {
    const HWND frame = FindWindowA("#32770", "Keldrun Version 1.1-20101001       www.brenholt.example");
    return PostMessageA(frame, WM_COMMAND, static_cast<WPARAM>(std::atoi(arguments[1])), 0) ? 0 : 1;
}
END
}
send_command() { attend "$QUORVANE_WINE" "$scratch/send.exe" "$1"; }

look() { import -window root "$shot"; }

# await_rest: looks until nothing moves any more, but 10 s at most.
await_rest() {
    local former='' present
    for _ in {1..25}; do
        look
        present=$(identify -format '%#' "$shot")
        [[ $present != "$former" ]] || return 0
        former=$present
        sleep 0.4
    done
}

# seen_size: width and height of what stands on the desktop, and where.
seen_size() { convert "$shot" -format '%@' info:; }

window_stands() {
    look
    [[ $(seen_size) =~ ^4[89][0-9]x3[67][0-9]\+([0-9]+)\+([0-9]+)$ ]] || return 1
    # The client area lies inside the edge and below the title bar.
    left=$((BASH_REMATCH[1] + 3)) top=$((BASH_REMATCH[2] + 22))
}

desktop_is_empty() {
    look
    (($(identify -format '%k' "$shot") == 1))
}

# The mouse, in pixels of the client area. A new window takes some time until it feels the pointer.
point_at() {
    xdotool mousemove $((left + $1)) $((top + $2))
    sleep 0.4
}
# rest_pointer: at a place of the panel where it changes nothing.
rest_pointer() { point_at 462 85; }
click() {
    point_at "$1" "$2"
    xdotool click 1
    sleep 0.4
    await_rest
}

# save NAME [WIDTHxHEIGHT+X+Y]: what stands on the desktop, or a piece of the client area.
save() {
    local cut=(-trim) size x y
    if (($# > 1)); then
        IFS=+ read -r size x y <<<"$2"
        cut=(-crop "$size+$((left + x))+$((top + y))")
    fi
    convert "$shot" "${cut[@]}" +repage -strip -define png:compression-level=9 "$pictures/$language-$1.png"
    say "  $language-$1.png, $(identify -format '%w by %h, %b' "$pictures/$language-$1.png")"
}

tell_line() { printf '%s\n' "$@" >"$scratch/control"; }

connect_line() {
    mkfifo "$scratch/control"
    begin "$root/build/line.log" build/host-release/bin/quorvane-line \
        --link "$scratch/com1" --control "$scratch/control" --counters 0,1 --rate 0 --baud 0 --traffic off
    poll 5 test -e "$scratch/com1" || die "the simulated line did not come up"
    link_ports "$scratch/com1"
}

start_program() {
    rm -f "$trafficLog"
    cd "$bin"
    begin "$root/build/program.log" "$QUORVANE_WINE" Quorvane.exe
    cd "$root"
    poll 60 window_stands || die "no window after 60 s"
    rest_pointer
    await_rest
}

end_program() {
    xdotool key alt+F4
    poll 10 desktop_is_empty || die "the program did not end"
}

both_counters_answer() {
    local hex
    for hex in '02 00' '02 01'; do grep -q "RX--> *$hex" "$trafficLog" || return 1; done
}

settings() {
    desktop_setting yes
    printf '[HKEY_CURRENT_USER\\SOFTWARE\\BRENHOLT\\QV]\n"COM"=dword:1\n"Language"=dword:%s\n' "$1"
}

take_menus() {
    local help=(21 13) languages=(42 13) ports=(63 13) piece=270x130+0+0
    click "${ports[@]}"
    point_at 60 38
    await_rest
    save menu-port "$piece"
    point_at 60 60
    sleep 1
    await_rest
    save menu-device "$piece"
    xdotool key Escape Escape Escape
    await_rest
    click "${languages[@]}"
    save menu-language "$piece"
    xdotool key Escape
    await_rest
    click "${help[@]}"
    save menu-help "$piece"
    click 60 38
    rest_pointer
    await_rest
    save about
    xdotool key Escape
    await_rest
}

take_pictures() {
    local start=(415 41) clear=(415 71) chinese=(253 133)
    start_program
    save start
    take_menus
    point_at "${chinese[@]}"
    xdotool mousedown 1
    await_rest
    save buttons 370x32+10+118
    rest_pointer # out of the button, so that nothing is chosen
    xdotool mouseup 1
    await_rest
    send_command 32771
    sleep 1
    await_rest
    save com-setting
    xdotool key Escape
    await_rest

    tell_line 'counts 0 1286 1241' 'counts 1 402 397'
    click "${start[@]}"
    rest_pointer
    poll 20 both_counters_answer || die "the simulated counters did not answer"
    sleep 2
    look
    save polling
    click "${start[@]}"
    click "${clear[@]}"
    rest_pointer
    sleep 1
    await_rest
    save message-done
    xdotool key Return
    await_rest
    tell_line 'fault silent *'
    click "${clear[@]}"
    rest_pointer
    sleep 1
    await_rest
    save message-silent
    xdotool key Return
    await_rest
    tell_line clear
    end_program
}

lock_tree
install_packages
if (($# == 0)); then
    build x64 Quorvane QuorvaneZHCN quorvane_theme || die "the build failed"
    build host-release quorvane-line || die "the build of the simulated line failed"
fi
mkdir -p "$pictures"
make_sender
start_display
prepare_prefix wine-pictures win64 < <(settings 0) || die "the Wine prefix could not be made"
connect_line
begin "$root/build/desktop.log" "$QUORVANE_WINE" explorer /desktop=Quorvane,1024x768
poll 60 xdotool search --onlyvisible --name 'Wine desktop' || die "Wine's desktop did not come up"
for language in en zh; do
    [[ $language == zh ]] && number=1 || number=0
    say "Pictures in $language"
    load_settings < <(settings "$number")
    take_pictures
done
