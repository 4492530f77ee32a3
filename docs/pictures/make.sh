#!/usr/bin/env bash
# Makes the pictures of README and guide again, off-screen, from the examples.
#   docs/pictures/make.sh [PROGRAM]        default build/release/quillan
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
program=$(realpath "${1:-$root/build/release/quillan}")
export QT_QPA_PLATFORM=offscreen SOURCE_DATE_EPOCH=1605625380  # the date on the pictures
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$root"/examples/survey/* "$root"/examples/lake/* .

# The decay curve is that of a station beside a power line, whose late windows Auto Skip has skipped for their errors.
cat > survey.txt << 'STEPS'
resize 1000 320
press 1009
snapshot main-window.png
resize 1200 900
menu 40016
check 1007 off
set 1006 20
press 1009
menu 40008
key n
key n
snapshot section-review.png
# The point near the pointer; a station turned round; a box, and what is left when skipped points are hidden.
hover 300 3
snapshot ring.png
menu 40023
point 680 -2
point 720 2
drag 16 1 21 5 Shift
snapshot box.png
key Ctrl+H
snapshot hidden.png
key Ctrl+H
key Ctrl+T
key ?
snapshot keys.png
answer ok
key Ctrl+E
snapshot export.png
press 1010
key Ctrl+T
press 1114
point 250 3
snapshot curve-review.png
press 1087
resize 900 200
key Alt+H
snapshot undo-menu.png
key Esc
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
resize 640 300
menu 40006
menu 40011
snapshot save-question.png
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

cat > merge.txt << 'STEPS'
resize 200 100
file cancel
press 1009
menu 40017
snapshot merge.png
press 1010
menu 40011
answer no
STEPS
"$program" orrin_el.avg --script merge.txt > /dev/null

# The first run is closed with edits that it has not saved; the second one opens the same file.
printf '%s\n' 'press 1009' 'menu 40016' 'press 1009' 'menu 40006' close > unsaved.txt
printf '%s\n' 'resize 760 300' 'press 1009' 'snapshot recovery.png' 'answer no' 'menu 40011' > recovery.txt
for steps in unsaved recovery; do
  "$program" orrin.avg --journal journal --script $steps.txt > /dev/null
done

# Files that need an answer: an array that the program does not know, contours, a number out of range.
cat > questions.txt << 'STEPS'
resize 200 100
press 1009
menu 40005
file unknown.avg
snapshot unknown-word.png
press 1009
press 1009
menu 40005
file contours.Z
file cancel
snapshot z-data-type.png
press 1009
press 1010
menu 40005
file range.avg
file cancel
snapshot error.png
answer ok
press 1010
menu 40011
STEPS
cat > unknown.avg << 'DATA'
$ Survey.Type = TEM
$ Tx.Freq = 16
TWin.Center, dBdt.Mag
0.0107, 1.121E+04
0.0139, 6.220E+03
DATA
echo '$ Survey.Array = slingram' > unknown.mde
cat > contours.Z << 'DATA'
$ Tx.Freq= 16
 Dorval Contour File
 TEM SURVEY DATA
 dBz/dt uV/amp
    Tx 100.0
$ CONTOUR= NONE
IIxxxxxxxxYYYYYYYYzzzzzzzzzzzz
 2   100.0 0.01250  1.1449E+05
 2   100.0  0.2000  1.1180E+02
 9999.00
DATA
sed 's/Tx.Freq = 16/&\n$ Tx.Ramp = 99999/' unknown.avg > range.avg
"$program" orrin.avg --script questions.txt > /dev/null
cp ./*.png "$here/"
