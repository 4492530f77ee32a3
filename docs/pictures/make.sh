#!/usr/bin/env bash
# Makes the pictures of README again, off-screen, from the examples.
#   docs/pictures/make.sh [PROGRAM]        default build/release/quillan
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
program=$(realpath "${1:-$root/build/release/quillan}")
export QT_QPA_PLATFORM=offscreen
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$root"/examples/survey/* "$root"/examples/lake/* .

# The decay curve is that of a station beside a power line, whose late windows Auto Skip has skipped for their errors.
cat > survey.txt << 'STEPS'
resize 1200 900
press 1009
snapshot main-window.png
menu 40016
check 1007 off
set 1006 20
press 1009
menu 40008
key n
key n
snapshot section-review.png
press 1114
point 250 3
snapshot curve-review.png
press 1087
menu 40011
STEPS
"$program" orrin.avg --script survey.txt > /dev/null

# A dialog covers the whole of a small window: the picture shows nothing else.
cat > dialogs.txt << 'STEPS'
resize 200 100
press 1009
menu 40020
snapshot survey-configuration.png
press 1010
menu 40016
snapshot auto-skip.png
press 1010
menu 40009
snapshot save-types.png
press 1010
menu 40016
press 1009
menu 40006
resize 100 100
menu 41003
snapshot edit-list.png
press 1010
menu 40011
answer no
STEPS
"$program" orrin.avg --script dialogs.txt > /dev/null

# The map covers a small window as well.
cat > stations.txt << 'STEPS'
resize 200 100
press 1009
menu 40018
resize 1200 840
snapshot station-map.png
key x
resize 1200 900
snapshot plan-view.png
menu 40011
answer no
STEPS
"$program" orrin.avg --script stations.txt > /dev/null

cat > lake.txt << 'STEPS'
resize 1200 900
file cancel
press 1009
menu 40016
check 1008 off
press 1009
menu 40008
snapshot section-review-lake.png
press 1114
point 5 2
snapshot curve-review-lake.png
press 1087
menu 40011
STEPS
"$program" metzabok.avg --script lake.txt > /dev/null
# The second repeat of a group is left out of its average.
cat > repeats.txt << 'STEPS'
resize 1200 900
file cancel
press 1009
menu 40007
set 1057 3
cell 1073 2 2 on
snapshot repeats.png
press 1010
menu 40011
answer no
STEPS
"$program" orrin_rep.xdb --script repeats.txt > /dev/null
cp ./*.png "$here/"
