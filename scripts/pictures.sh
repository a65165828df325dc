#!/bin/bash
# Approves new looks of the programs: see `scripts/pictures.sh --help`.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [[ ${1-} == --help || ${1-} == -h ]]; then
    cat <<'END'
scripts/pictures.sh
Takes the pictures of docs/pictures and the sheets of tests/looks anew. The former are those of the user guide, and both are
what tests compare the programs with: look at each that has changed before you commit it.
END
    exit 0
fi

source scripts/common.sh
trap end_started EXIT
lock_tree
install_packages
build x64 || die "the build failed"
taken=$root/build/x64/approved
mkdir -p "$taken"
rm -f "$taken"/*.ppm
QUORVANE_LOOKS_APPROVE=Z:$taken ctest --preset x64 -L looks || die "not all pictures were taken"
rm -f docs/pictures/*.png tests/looks/*.png
for picture in "$taken"/*.ppm; do
    name=$(basename "$picture" .ppm) folder=docs/pictures
    [[ $name != sheet-* ]] || folder=tests/looks
    convert "$picture" -strip -define png:compression-level=9 "$folder/$name.png"
done
git status --short docs/pictures tests/looks
