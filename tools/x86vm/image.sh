# shellcheck shell=bash
# Where the machine's files are, for build-image and run32: in the user's cache, so that every clone finds them.
image_folder() { realpath -m "${QUORVANE_X86VM:-${XDG_CACHE_HOME:-$HOME/.cache}/quorvane/x86vm}"; }
