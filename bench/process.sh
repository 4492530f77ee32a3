#!/usr/bin/env bash
# Figures of the whole program, off-screen: how long until it has answered, how much memory it takes at most.
#
#   bench/process.sh [BUILD_FOLDER]      default build/release; needs about 1.1 GB in $TMPDIR for a moment
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$root/build/release}" && pwd)
quillan=$build/quillan
runs=11
export QT_QPA_PLATFORM=offscreen
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

# Wall time of a command in msec: the median and the least of some runs.
wall_time() {
  local times=() start
  for ((run = 0; run < runs; ++run)); do
    start=${EPOCHREALTIME/./}
    "$@" > /dev/null
    times+=($((${EPOCHREALTIME/./} - start)))
  done
  mapfile -t times < <(printf '%s\n' "${times[@]}" | sort -n)
  awk -v median="${times[runs / 2]}" -v least="${times[0]}" \
    'BEGIN { printf "%8.1f ms, least %.1f ms\n", median / 1000, least / 1000 }'
}

# The most memory that a command ever had, as the system counts it while it runs, and its wall time.
peak_memory() {
  local peak=0 line start=${EPOCHREALTIME/./}
  "$@" > /dev/null &
  while kill -0 $! 2> /dev/null; do
    while read -r line; do
      if [[ $line == VmHWM:* ]]; then peak=${line//[^0-9]/}; fi
    done < "/proc/$!/status" || true
    sleep 0.02
  done 2> /dev/null
  wait $!
  awk -v peak="$peak" -v time=$((${EPOCHREALTIME/./} - start)) \
    'BEGIN { printf "%8.1f MB, in %.2f s\n", peak * 1024 / 1.0e6, time / 1.0e6 }'
}

# What examples/batch does to each file, with a new copy of it.
batch_file() {
  rm -f orrin*
  cp "$root"/examples/survey/orrin.{avg,mde} .
  "$quillan" orrin.avg --script "$root/examples/batch/steps.txt"
}

cp "$root"/examples/survey/orrin.{avg,mde} .
"$build/bench/make_full_store" full.avg > /dev/null
printf 'press 1009\nmenu 40011\n' > show.txt
printf 'press 1009\nresize 1200 900\nmenu 40011\n' > resize.txt

printf '%-52s' '--version'
wall_time "$quillan" --version
printf '%-52s' 'a bare window, the floor of a start'
wall_time "$build/bench/bare_window" 2> /dev/null
printf '%-52s' 'start, read a small file, paint, end'
wall_time "$quillan" orrin.avg --script show.txt
printf '%-52s' 'a file of a batch: open, Auto Skip, save'
wall_time batch_file
printf '%-52s' 'start to end with a full store'
runs=5 wall_time "$quillan" full.avg --script show.txt
printf '%-52s' 'peak memory, full store at 1200 by 900'
peak_memory "$quillan" full.avg --script resize.txt

# The last row of each transient over and over: as many lines as a gigabyte holds, and all of them rows.
awk '/^64,/ { for (i = 0; i < 2200; ++i) print } { print }' full.avg > huge.avg
cp full.mde huge.mde
printf '%-52s' "peak memory, a file of $(($(stat -c %s huge.avg) / 1000000)) MB at 1200 by 900"
peak_memory "$quillan" huge.avg --script resize.txt
