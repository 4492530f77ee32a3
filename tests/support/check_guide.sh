#!/usr/bin/env bash
# The guide holds together and says what the program says: every link and picture is there and none leads out to another
# machine's, every dialog and key has its place, and the tables of keys are those that "?" shows.
#   check_guide.sh PROGRAM SOURCE BUILD
set -eu
program=$(realpath "$1")
source=$(realpath "$2")
guide=$(realpath "$3")/share/doc/quillan/guide
export QT_QPA_PLATFORM=offscreen
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() {
  echo "$1"
  touch "$folder/failed"
}

cd "$guide"
for page in *.html; do
  if grep -nE '<script|src="[a-z]+:|<link[^>]+href="[a-z]+:' "$page"; then fail "$page loads from elsewhere"; fi
  grep -oE '(href|src)="[^"]*"' "$page" | sed -E 's/^[a-z]+="//; s/"$//' | sort -u | while read -r target; do
    case $target in http*:*) continue ;; esac
    file=${target%%#*} place=
    if [[ $target == *#* ]]; then place=${target#*#}; fi
    [ -s "${file:-$page}" ] || fail "$page: there is no $target"
    [ -z "$place" ] || grep -qF "id=\"$place\"" "${file:-$page}" || fail "$page: there is no place $target"
  done
done
for chapter in "$source"/docs/guide/*.md; do
  page=$(basename "$chapter" .md)
  [ -s "${page/README/index}.html" ] || fail "$chapter is no page"
done

windows=$source/docs/guide/windows.md
for dialog in "$source"/src/toolkit/dialogs/*.ui; do
  number=$(basename "$dialog" .ui)
  grep -qE "^## .*\((dialog|tool window) $number\)$" "$windows" || fail "dialog $number has no place"
done
grep -ohE '"(Ctrl\+[A-Za-z+]+|F[0-9]+)"' "$source/src/shell/command_table.cpp" "$source/src/review/plot/review_edits.h" |
  tr -d '"' | sort -u | while read -r key; do
  grep -qE "\| [^|]*${key//+/\\+}\b" "$windows" || fail "the key $key has no place"
done

# A script that ends while the list of keys waits says what the list holds.
cp "$source"/examples/survey/* "$folder"
cd "$folder"
check_keys() {
  local heading=$1 data=$2 wanted shown
  printf '%s\n' "${@:3}" 'key ?' > steps.txt
  "$program" "$data" --script steps.txt > /dev/null 2> fault.txt || true
  shown=$(sed -nE 's/.*the message box "(.*)" waits for an answer$/\1/p' fault.txt)
  wanted=$(awk -v heading="### Keys of $heading" -F ' *[|] *' \
    '/^#/ { here = ($0 == heading) } here && NF == 4 && $2 !~ /^(key|-+)$/ { print $2 ": " $3 }' \
    "$source/docs/guide/cleaning.md" | paste -sd ' ')
  [ -n "$shown" ] && [ "$shown" = "$wanted" ] || fail "$heading: the program shows
  $shown
the guide has
  $wanted"
}
check_keys 'the section review' orrin.avg 'press 1009' 'menu 40008'
check_keys 'the curve review' orrin.avg 'press 1009' 'menu 40008' 'key n' 'key n' 'press 1114' 'point 250 3'
check_keys 'Average Repeats' orrin_rep.xdb 'file cancel' 'press 1009' 'menu 40007'
[ ! -e failed ]
