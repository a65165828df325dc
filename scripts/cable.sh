#!/bin/bash
# scripts/cable.sh A B PULLED: a null-modem cable between two pseudo-terminals, linked as A and B. While a file PULLED is
# there, the cable is pulled: both ports vanish under the programs that use them, and come back when the file goes.
set -u

end_cable() {
    kill "$socat" "$holder" 2>/dev/null
    wait
}
trap 'end_cable; exit 0' HUP INT TERM

while :; do
    socat "pty,raw,echo=0,link=$1" "pty,raw,echo=0,link=$2" &
    socat=$!
    until [[ -e $1 && -e $2 ]]; do sleep 0.05; done
    # socat ends when the last program closes one of the two, so a sleeper holds both open. It opens them itself: here
    # they could become the controlling terminal of this script.
    # shellcheck disable=SC2016
    bash -c 'exec sleep infinity 3<>"$1" 4<>"$2"' holder "$1" "$2" &
    holder=$!
    until [[ -e $3 ]]; do sleep 0.25; done
    end_cable
    # A port that isn't there must refuse; without its link another port of the machine might open in its place.
    rm -f "$1" "$2"
    mkdir "$1" "$2"
    while [[ -e $3 ]]; do sleep 0.05; done
    rmdir "$1" "$2"
done
