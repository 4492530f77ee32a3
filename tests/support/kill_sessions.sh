#!/usr/bin/env bash
# Kills the program at random moments of a session with a journal, and takes the session up again: the data must be those
# after the last edit that was complete, or after the one that was under way.
#   kill_sessions.sh PROGRAM INPUT_FOLDER N [SEED]
# INPUT_FOLDER holds small.avg and small.mde. The session waits after each step at a pipe, so that it is known how far it
# has come; the kill comes some milliseconds after the step has begun.
set -eu
program=$(realpath "$1")
input=$(realpath "$2")
kills=$3
RANDOM=${4:-1}
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 SOURCE_DATE_EPOCH=1605225600
folder=$(mktemp -d)
running=
clean_up() {
  if [ -n "$running" ]; then kill -9 "$running" 2> /dev/null || true; fi
  rm -rf "$folder"
}
trap clean_up EXIT
cd "$folder"

open=$'answer ok\npress 1009'
save=$'menu 40009\ncheck 1103 on\npress 1009\nanswer yes'
edits=(
  $'menu 40016\nset 1003 5\nset 1006 35\npress 1009'
  $'menu 40006'
  $'key Ctrl+Z'
  $'menu 40020\nset 1025 Renamed\nset 1056 50\npress 1009'
  $'menu 40016\nset 1006 1\npress 1009'
  $'key Ctrl+Z'
  $'key Ctrl+Z'
  $'key Ctrl+Y'
  $'menu 40006'
  $'menu 40008\nmenu 40024\nmenu 40011'
  $'key Ctrl+Z'
  $'menu 40008\ndrag 3 3 12 16\nmenu 40011'
)

# Plays the lines of standard input on a fresh copy of the input:  play FOLDER [ARGUMENT...]
play() {
  local where=$1
  shift
  cat > "$where/steps.txt"
  cp -L "$input"/small.* "$where/"
  (cd "$where" && "$program" small.avg "$@" --script steps.txt > output.txt 2> errors.txt)
}

# What a save leaves after the first n edits.
states=("${edits[@]}" "")
for n in "${!states[@]}"; do
  mkdir "state$n"
  { echo "$open"; for ((i = 0; i < n; ++i)); do echo "${edits[$i]}"; done; echo "$save"; } | play "state$n"
done

is_state() {
  local file
  for file in small.avg smallo.avg small.mde; do cmp -s "recovered/$file" "state$1/$file" || return 1; done
}

failed=0
for ((k = 1; k <= kills; ++k)); do
  n=$((RANDOM % ${#edits[@]}))
  rm -rf run recovered
  mkdir run recovered
  for i in "${!edits[@]}"; do mkfifo "run/wait$i"; done
  {
    echo "$open"
    echo "resize 300 200"
    for i in "${!edits[@]}"; do echo "snapshot wait$i"; echo "${edits[$i]}"; done
    echo "snapshot wait0"
  } > run/steps.txt
  cp -L "$input"/small.* run/
  cd run
  "$program" small.avg --journal ../journal --script steps.txt > output.txt 2> errors.txt &
  running=$!
  cd ..
  for ((i = 0; i <= n; ++i)); do timeout 60 cat "run/wait$i" > /dev/null; done
  sleep "0.$(printf '%03d' $((RANDOM % 150)))"
  kill -9 "$running"
  wait "$running" 2> /dev/null || true
  running=
  # The journal belongs to the path of the file. The question is there unless no edit is in force.
  journal=$(ls journal)
  question=$'expect "not saved. Take"\nanswer yes'
  { echo "$open"; echo "$question"; echo "$save"; } > run/steps.txt
  (cd run && "$program" small.avg --journal ../journal --script steps.txt > output.txt 2> errors.txt) ||
    (cd run && { echo "$open"; echo "$save"; } > steps.txt &&
      "$program" small.avg --journal ../journal --script steps.txt > output.txt 2> errors.txt)
  cp run/small*.* recovered/
  left=$(ls journal)
  if [ -n "$left" ]; then
    echo "kill $k after edit $n: the saved session has left $left"
    failed=1
  fi
  if ! is_state "$n" && ! is_state $((n + 1)); then
    echo "kill $k after edit $n: the data are those of no edit that was complete or under way ($journal)"
    failed=1
  fi
done
echo "$kills kills"
exit "$failed"
