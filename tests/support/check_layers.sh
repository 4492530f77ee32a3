#!/usr/bin/env bash
# Holds the order of the layers: a file includes only its own folder and the folders below it, and only the toolkit's
# source files and private headers know Qt.
set -eu
cd "$1/src"
layers=(base toolkit foundations metadata model files review/plot processing stations review shell)
declare -A rank
for i in "${!layers[@]}"; do rank[${layers[$i]}]=$i; done
failed=0
while IFS=: read -r file line text; do
  folder=${file%/*}
  included=$(sed -n 's/.*#include "\([^"]*\)\/[^/"]*".*/\1/p' <<< "$text")
  if [ -z "$included" ] || [ -z "${rank[$included]:-}" ]; then
    echo "$file:$line: include by folder and name: $text"
    failed=1
  elif [ "${rank[$included]}" -gt "${rank[$folder]}" ]; then
    echo "$file:$line: $folder may not include $included, which stands above it"
    failed=1
  fi
done < <(grep -rn '#include "' --include='*.h' --include='*.cpp' .  | sed 's#^\./##')
while IFS=: read -r file line text; do
  case $file in
    toolkit/*.cpp | toolkit/private*.h) ;;
    *) echo "$file:$line: only the toolkit's source files include Qt: $text"; failed=1 ;;
  esac
done < <(grep -rnE '#include <Q' --include='*.h' --include='*.cpp' . | sed 's#^\./##')
exit "$failed"
