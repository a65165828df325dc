# shellcheck shell=bash
# shellcheck disable=SC2154 # root, scratch and begun are those of common.sh
# Wine for ./run and ./test: a prefix under build/, its server, its ports, a virtual display.

export WINEDEBUG=-all
# No menu entries on the user's desktop, no offers to download what the program doesn't need.
export WINEDLLOVERRIDES='winemenubuilder.exe=d;mscoree=d;mshtml=d'

# Debian's own `wine` command complains at each call where the 32-bit part is missing; the loader itself doesn't.
export WINELOADER=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver
prefixes=() # those whose server this script started

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

# load_settings [bare]: the registry settings of every prefix, and those from standard input, in the form of a .reg file
# without its first line. Bare, without the stand-ins for fonts.
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
        [[ -n ${1-} ]] || font_settings
        cat
    } >"$scratch/settings.reg"
    attend "$WINELOADER" regedit /S "Z:$scratch/settings.reg"
}

# prepare_prefix FOLDER ARCHITECTURE [bare]: WINEPREFIX is FOLDER under build/ (win64 or win32), its server runs until this script
# ends, and no port of an earlier run is in it. Registry settings come from standard input, as for load_settings. A prefix
# that is new, unfinished or of another Wine is made afresh. A bare one has neither bitmap fonts nor stand-ins for others.
prepare_prefix() {
    local fresh='' stamp bare=${3-}
    export WINEPREFIX=$root/build/$1 WINEARCH=$2
    stamp="$("$WINELOADER" --version) $WINEARCH"
    "$wineserver" -k || true # one that a killed run left behind
    if [[ ! -f $WINEPREFIX/prepared || $(<"$WINEPREFIX/prepared") != "$stamp" ]]; then
        say "Making a Wine prefix in build/$1: some 10 s, once"
        rm -rf "$WINEPREFIX"
        mkdir -p "$WINEPREFIX/drive_c/windows/Fonts" || return
        # Wine doesn't look for bitmap fonts outside of a prefix.
        [[ -n $bare ]] || cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/" || return
        fresh=yes
    fi
    rm -f "$WINEPREFIX"/dosdevices/com*
    prefixes+=("$WINEPREFIX")
    attend "$wineserver" -p >/dev/null 2>&1
    [[ -z $fresh ]] || attend "$WINELOADER" wineboot -i >"$root/build/$1.log" 2>&1 || return
    # The first program starts Wine's services, which link the machine's ports; from then on links stay as they are set.
    load_settings "$bare" || return
    [[ -z $fresh ]] || say "$stamp" >"$WINEPREFIX/prepared"
}

# desktop_setting yes|no: whether programs run on a Wine desktop, which on a display without a window manager draws title
# bars and hands on the keyboard, or get the display's own windows.
desktop_setting() {
    local value='"Quorvane"'
    [[ $1 == yes ]] || value=-
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\n"Desktop"=%s\n\n' "$value"
}

# test_settings: what the tests want in the registry, with none of the values that the program keeps between runs.
test_settings() {
    desktop_setting yes
    printf '[-HKEY_CURRENT_USER\\SOFTWARE\\BRENHOLT\\QV]\n'
}

# start_test_ground: what the tests want of a running prefix: joined ports, and a desktop.
start_test_ground() {
    join_ports
    begin "$root/build/desktop.log" "$WINELOADER" explorer /desktop=Quorvane,1024x768
    poll 300 xdotool search --onlyvisible --name '^Quorvane - Wine desktop'
}

# end_wine: ends the servers of this script's prefixes, and with them every program in them.
end_wine() {
    local prefix
    for prefix in "${prefixes[@]}"; do
        WINEPREFIX=$prefix timeout 10 "$wineserver" -k || true
    done
}

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

# join_ports: two null-modem cables, laid once, COM1 to COM2 and COM3 to COM4 of the prefix; tells the tests, and how they can pull
# the first one: by a file.
join_ports() {
    local ends=("$scratch"/com{1,2,3,4}) pulled=$scratch/pulled end
    if [[ ! -e ${ends[0]} ]]; then
        begin "$root/build/cable.log" scripts/cable.sh "${ends[@]:0:2}" "$pulled"
        begin "$root/build/cable2.log" scripts/cable.sh "${ends[@]:2:2}" "$scratch/never"
    fi
    for end in "${ends[@]}"; do
        poll 60 test -e "$end" || die "socat did not make a pair of pseudo-terminals"
    done
    link_ports "${ends[@]}"
    export QUORVANE_TEST_PORT_A=COM1 QUORVANE_TEST_PORT_B=COM2 QUORVANE_TEST_PULLED="Z:$pulled"
    export QUORVANE_TEST_PORT_C=COM3 QUORVANE_TEST_PORT_D=COM4
}

# start_display: a virtual display of 1024 by 768, the first free number; DISPLAY names it.
start_display() {
    begin "$root/build/display.log" \
        Xvfb -displayfd 3 -screen 0 1024x768x24 -dpi 96 -nolisten tcp -noreset 3>"$scratch/display"
    poll 20 test -s "$scratch/display" || die "no virtual display: see build/display.log"
    DISPLAY=:$(<"$scratch/display")
    export DISPLAY
    unset WAYLAND_DISPLAY
}
