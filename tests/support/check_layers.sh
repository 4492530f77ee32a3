#!/usr/bin/env bash
# Holds the order of the layers by what is included and by what is linked: a file includes only its own folder and the
# folders below it, only the toolkit's source files and private headers know Qt, and the core links no Qt.
#   check_layers.sh SOURCE BUILD
set -eu
layers=(base platform foundations metadata model files processing stations
  toolkit/draw toolkit/window toolkit/dialog toolkit/script review/plot review commands shell)
declare -A rank
for i in "${!layers[@]}"; do rank[${layers[$i]}]=$i; done
failed=0
cd "$1/src"
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
    toolkit/*.cpp | toolkit/*/private*.h) ;;
    *) echo "$file:$line: only the toolkit's source files include Qt: $text"; failed=1 ;;
  esac
done < <(grep -rnE '#include <Q' --include='*.h' --include='*.cpp' . | sed 's#^\./##')

cd "$2"
for program in tests/{base,platform,foundations,metadata,model,files,processing,stations}_test fuzz/*_fuzz; do
  if [ -x "$program" ] && readelf -d "$program" | grep -q 'NEEDED.*Qt'; then
    echo "$program links Qt; the core and its tests do without a window"
    failed=1
  fi
done
if nm --undefined-only --demangle libquillan_core.a 2> /dev/null | grep -qE ' (Q[A-Z][A-Za-z]*::|quillan::(toolkit|W[A-Z]|IGr|IPg))'; then
  echo "libquillan_core.a calls a window"
  failed=1
fi
exit "$failed"
