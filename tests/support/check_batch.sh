#!/usr/bin/env bash
# Plays the example of a night's work on four files, of which one cannot be read, and goes on after what failed is mended.
#   check_batch.sh PROGRAM EXAMPLES
set -eu
program=$(realpath "$1")
examples=$(realpath "$2")
export QT_QPA_PLATFORM=offscreen
PATH=$(dirname "$program"):$examples/batch:$PATH
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir surveys
for name in a b c d; do
  cp "$examples/survey/orrin_el.avg" "surveys/$name.avg"
  cp "$examples/survey/orrin.mde" "surveys/$name.mde"
done
echo 'no data' > surveys/c.avg
find surveys -name '*.avg' | sort > files.txt
if parallel --will-cite --jobs 2 --joblog jobs.log clean_one.sh {} logs :::: files.txt; then
  echo "the file without data went through"
  exit 1
fi
[ "$(awk 'NR > 1 && $7 == 0' jobs.log | wc -l)" = 3 ] || { cat jobs.log; exit 1; }
grep -q 'steps.txt' logs/surveys+c.avg/faults.txt || { echo "no word on what failed"; exit 1; }
cp "$examples/survey/orrin_el.avg" surveys/c.avg
parallel --will-cite --jobs 2 --joblog jobs.log --retry-failed
for name in a b c d; do cmp surveys/ao.avg "surveys/${name}o.avg"; done
