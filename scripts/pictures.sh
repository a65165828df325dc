#!/bin/bash
# Approves new looks of the programs: see `scripts/pictures.sh --help`.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [[ ${1-} == --help || ${1-} == -h ]]; then
    cat <<'END'
scripts/pictures.sh
Takes the pictures of docs/pictures anew. They are those of the user guide, and at the same time what the test looks_test
compares the programs with: look at each that has changed before you commit it.
END
    exit 0
fi

source scripts/common.sh
lock_tree
install_packages
build x64 looks_test || die "the build failed"
taken=$root/build/x64/approved
mkdir -p "$taken"
rm -f "$taken"/*.ppm
QUORVANE_LOOKS_APPROVE=Z:$taken ctest --preset x64 -R '^looks_test$' || die "not all pictures were taken"
rm -f docs/pictures/*.png
for picture in "$taken"/*.ppm; do
    convert "$picture" -strip -define png:compression-level=9 "docs/pictures/$(basename "$picture" .ppm).png"
done
git status --short docs/pictures
