# shellcheck shell=bash
# shellcheck disable=SC2154 # root, scratch and begun are those of common.sh
# Wine for ./run and the tests: a prefix under build/, its server, its ports, a virtual display, the program's Start.

export WINEDEBUG=-all LC_ALL=C.UTF-8
# No menu entries on the user's desktop, no offers to download what the program doesn't need.
export WINEDLLOVERRIDES='winemenubuilder.exe=d;mscoree=d;mshtml=d'

# choose_wine x86|x64: which Wine runs programs. Debian's own `wine` command complains at each call where the 32-bit part is
# missing; the loader itself doesn't. Exit code 3 where there is no 32-bit code.
choose_wine() {
    if [[ $1 == x86 ]]; then
        WINEARCH=win32 QUORVANE_WINE=$root/scripts/wine32 wineserver=("$root/scripts/wine32" --server)
        attend scripts/wine32 --make
    else
        WINEARCH=win64 QUORVANE_WINE=/usr/lib/wine/wine64 wineserver=(/usr/lib/wine/wineserver)
    fi
    export WINEARCH QUORVANE_WINE
}

# load_settings: the registry settings of every prefix, and those from standard input, in the form of a .reg file without its
# first line.
load_settings() {
    {
        cat <<'END'
REGEDIT4

[HKEY_CURRENT_USER\Control Panel\Desktop]
"LogPixels"=dword:00000060

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]
"Quorvane"="1024x768"

END
        cat
    } >"$scratch/settings.reg"
    attend "$QUORVANE_WINE" regedit /S "Z:$scratch/settings.reg"
}

# font_settings: what stands in for fonts that Wine lacks.
font_settings() {
    cat <<'END'
; The font of the Chinese dialogs, by one with the same widths and heights.
[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"SimSun"="AR PL SungtiL GB"

; Where title bars find Chinese glyphs: "wqy-microhei.ttc,WenQuanYi Micro Hei".
[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink]
"Tahoma Bold"=hex(7):77,71,79,2d,6d,69,63,72,6f,68,65,69,2e,74,74,63,2c,57,65,6e,51,75,61,6e,59,\
  69,20,4d,69,63,72,6f,20,48,65,69,00,00

END
}

# prepare_prefix FOLDER: WINEPREFIX is FOLDER, its server runs until end_wine, and no port of an earlier run is in it. Registry
# settings come from standard input, as for load_settings. A prefix that is new, unfinished or of another Wine is made
# afresh. One whose name ends in "bare" has neither bitmap fonts nor stand-ins for others.
prepare_prefix() {
    local stamp fonts=yes
    [[ $1 != *bare ]] || fonts=''
    export WINEPREFIX=$1
    stamp="$("$QUORVANE_WINE" --version) $QUORVANE_WINE"
    "${wineserver[@]}" -k || true # one that a killed run left behind
    if [[ ! -f $WINEPREFIX/prepared || $(<"$WINEPREFIX/prepared") != "$stamp" ]]; then
        rm -rf "$WINEPREFIX"
        mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
        # Wine doesn't look for bitmap fonts outside of a prefix.
        [[ -z $fonts ]] || cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/"
        attend "${wineserver[@]}" -p
        attend "$QUORVANE_WINE" wineboot -i || return
    else
        attend "${wineserver[@]}" -p
    fi
    rm -f "$WINEPREFIX"/dosdevices/com*
    # The first program starts Wine's services, which link the machine's ports; from then on links stay as they are set.
    load_settings < <([[ -z $fonts ]] || font_settings; cat) || return
    say "$stamp" >"$WINEPREFIX/prepared"
}

# desktop_setting yes|no: whether programs run on a Wine desktop, which on a display without a window manager draws title
# bars and hands on the keyboard, or get the display's own windows.
desktop_setting() {
    local value='"Quorvane"'
    [[ $1 == yes ]] || value=-
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\n"Desktop"=%s\n\n' "$value"
}

start_desktop() {
    begin /dev/null "$QUORVANE_WINE" explorer /desktop=Quorvane,1024x768
    poll 60 xdotool search --onlyvisible --name '^Quorvane - Wine desktop'
}

# end_wine: ends the server of the prefix, and with it every program in it.
end_wine() { [[ -z ${WINEPREFIX-} ]] || timeout 10 "${wineserver[@]}" -k || true; }

# link_ports DEVICE...: makes the devices COM1, COM2 and so on of the running prefix. A port of the machine would still
# open without its link, through Wine's device of that name; a link to a folder refuses.
link_ports() {
    local link number=0 device
    for link in "$WINEPREFIX"/dosdevices/com*; do
        [[ ! -L $link ]] || ln -sfn ../drive_c "$link"
    done
    for device in "$@"; do
        number=$((number + 1))
        ln -sfn "$device" "$WINEPREFIX/dosdevices/com$number"
    done
}

# start_display: a virtual display of 1024 by 768, the first free number; DISPLAY names it.
start_display() {
    begin build/display.log Xvfb -displayfd 3 -screen 0 1024x768x24 -dpi 96 -nolisten tcp -noreset 3>"$scratch/display"
    poll 20 test -s "$scratch/display" || die "no virtual display: see build/display.log"
    DISPLAY=:$(<"$scratch/display")
    export DISPLAY
    unset WAYLAND_DISPLAY
}

# press_start COMMAND...: starts the polling, which COMMAND succeeds to see. Enter is the panel's Start and Stop, so it is pressed
# again only when COMMAND goes on failing.
press_start() {
    for _ in {1..5}; do
        xdotool key Return
        ! poll 3 "$@" || return 0
    done
    return 1
}
