#!/usr/bin/env bash
# What the desktop reads of an installed program holds to its formats, and the manual names every option.
#   check_share.sh SOURCE BUILD
set -eu
linux=$1/share/linux
made=$2/share/linux
desktop-file-validate "$linux/quillan.desktop"
xmllint --noout "$linux/quillan.xml" "$linux/quillan.svg"
appstreamcli validate --no-net "$made/org.quillan.quillan.metainfo.xml"
[ -z "$(mandoc -T lint "$made/quillan.1" | tee /dev/stderr)" ]
bash -n "$made/quillan"
grep -oE '^    \{"--[a-z]+' "$1/src/shell/options.cpp" | grep -oE '[a-z]+$' | while read -r option; do
  grep -q "^\.\(It Fl\|\.Fl\|Fl\) -$option" "$made/quillan.1" || { echo "the manual does not name --$option"; exit 1; }
  grep -q -- "--$option" "$made/quillan" || { echo "the completion does not know --$option"; exit 1; }
done
