#!/bin/bash
# check_product.sh x86|x64 CHECK: looks into the built product in build/PRESET/bin with one of the checks below.
# Prints what is wrong, and fails.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=$1
bin=build/$preset/bin
case $preset in
# The oldest system that a program's header may ask for: Windows XP, and its 64-bit edition.
x86) triplet=i686-w64-mingw32 format=pei-i386 oldest=501 ;;
x64) triplet=x86_64-w64-mingw32 format=pei-x86-64 oldest=502 ;;
esac

programs=(Quorvane.exe QuorvaneLine.exe Gallery.exe QuorvaneZHCN.dll)

# Libraries that every Windows from XP has. Run-time libraries of the compiler aren't among them.
systemLibraries='advapi32|comctl32|comdlg32|gdi32|kernel32|msimg32|msvcrt|ole32|oleaut32|shell32|shlwapi|user32|version|winmm'

fault() {
    echo "$*"
    faults=yes
}

# header PROGRAM FIELD: the field's value in the optional header.
header() { "$triplet-objdump" -p "$bin/$1" | awk -v field="$2" '$1 == field { print $2; field = "" }'; }

imports() { "$triplet-objdump" -p "$bin/$1" | sed -n 's/.*DLL Name: //p'; }

# has_line TEXT LINE: whether LINE is one of TEXT's lines. (A pipe into `grep -q` breaks early, which counts as a failure.)
has_line() { grep -Fiqx -- "$2" <<<"$1"; }

# check_placement PROGRAM: the system may load it at any address, and never runs its data as code.
check_placement() {
    local fields flag
    fields=$("$triplet-objdump" -p "$bin/$1")
    for flag in DYNAMIC_BASE NX_COMPAT; do
        [[ $fields =~ [[:space:]]${flag}[[:space:]] ]] || fault "$1 isn't marked $flag"
    done
    [[ $fields != *'relocations stripped'* ]] || fault "$1 can't be moved"
    # The language library has nothing but resources, which need no relocation.
    [[ $1 == *.dll || $("$triplet-objdump" -h "$bin/$1") == *' .reloc '* ]] || fault "$1 has no relocations"
}

check_headers() {
    local program version
    for program in "${programs[@]}"; do
        [[ $("$triplet-objdump" -f "$bin/$program") == *"file format $format"* ]] || fault "$program isn't $format"
        version=$(($(header "$program" MajorSubsystemVersion) * 100 + $(header "$program" MinorSubsystemVersion)))
        ((version <= oldest)) || fault "$program asks for Windows version $version"
        check_placement "$program"
    done
    for program in "${programs[@]}"; do
        [[ $program == *.dll || $("$triplet-objdump" -p "$bin/$program") == *TERMINAL_SERVICE_AWARE* ]] ||
            fault "$program isn't made for terminal servers"
    done
    for program in Quorvane.exe Gallery.exe; do
        [[ $(header "$program" Subsystem) == 00000002 ]] || fault "$program isn't a program with windows"
    done
    [[ $(header QuorvaneLine.exe Subsystem) == 00000003 ]] || fault "QuorvaneLine.exe isn't a console program"
}

check_imports() {
    local program library
    for program in "${programs[@]}"; do
        for library in $(imports "$program"); do
            grep -Eqix "($systemLibraries)\.dll" <<<"$library" || fault "$program imports $library"
        done
    done
    has_line "$(imports Quorvane.exe)" user32.dll || fault "Quorvane.exe imports no USER32"
}

# resources PROGRAM TYPE: the names of its resources of one type number, sorted.
resources() { wrestool --list --type="$2" "$bin/$1" | sed -n "s/.*--name='\?\([^ ']*\)'\?.*/\1/p" | sort; }

# expect_resources PROGRAM TYPE NAME...: the program has at least these.
expect_resources() {
    local program=$1 type=$2 found name
    shift 2
    found=$(resources "$program" "$type")
    for name in "$@"; do
        has_line "$found" "$name" || fault "$program has no resource $name of type $type"
    done
}

check_resources() {
    local cursorGroup=12 dialog=5 dialogLists=240 iconGroup=14 manifest=24 string=6 version=16 program
    local dialogs=(100 102 129 146 219) icons=(128 133 134)
    for program in Quorvane.exe QuorvaneZHCN.dll; do
        expect_resources "$program" $dialog "${dialogs[@]}"
        expect_resources "$program" $dialogLists 219
        expect_resources "$program" $iconGroup "${icons[@]}"
    done
    expect_resources Quorvane.exe $cursorGroup 144
    expect_resources Quorvane.exe $manifest 1
    expect_resources Quorvane.exe $version 1
    [[ -n $(resources Quorvane.exe $string) ]] || fault "Quorvane.exe has no strings"
    [[ $(resources Quorvane.exe $string) == "$(resources QuorvaneZHCN.dll $string)" ]] ||
        fault "QuorvaneZHCN.dll has other blocks of strings than Quorvane.exe"
}

# Every theme picture that the panel or a dialog names is there, and is a bitmap.
check_themes() {
    local picture pictures
    mapfile -t pictures < <(grep -rhoE '[A-Za-z0-9]+\.bmp"' src/panel src/shell | tr -d '"' | sort -u)
    ((${#pictures[@]})) || fault "no source names a theme picture"
    for picture in "${pictures[@]}"; do
        [[ $(head -c 2 "$bin/Themes/DefaultTheme/$picture") == BM ]] || fault "$picture is no bitmap"
    done
}

faults=''
for program in "${programs[@]}"; do
    [[ -f $bin/$program ]] || fault "$bin/$program is missing"
done
[[ -n $faults ]] || "check_$2"
[[ -z $faults ]]
