#!/usr/bin/env bash
# Turns CHANGELOG.md, on standard input, into the form of Debian:  debian_changelog.sh "NAME <ADDRESS>"
# An entry begins "## VERSION, DATE"; its lines are a list.
set -euo pipefail
maintainer=$1 date='' item=''
end_item() {
  [ -z "$item" ] || printf '%s\n' "$item" | fold -s -w 74 | sed 's/ *$//; 1s/^/  * /; 2,$s/^/    /'
  item=''
}
end_entry() {
  end_item
  [ -z "$date" ] || printf '\n -- %s  %s\n' "$maintainer" "$(LC_ALL=C date -u -d "$date" '+%a, %d %b %Y %H:%M:%S +0000')"
}
while IFS= read -r line; do
  case $line in
    '## '*)
      end_entry
      version=${line#'## '} date=${line##*, }
      printf 'quillan (%s) stable; urgency=medium\n\n' "${version%%,*}"
      ;;
    '- '*) end_item; item=${line#'- '} ;;
    '  '*) item+=" ${line#'  '}" ;;
  esac
done
end_entry
