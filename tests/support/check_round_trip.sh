#!/usr/bin/env bash
# Plays every session while it is recorded, plays the record, and compares all files that the two leave.
#   check_round_trip.sh PROGRAM SESSIONS
set -eu
program=$(realpath "$1")
sessions=$(realpath "$2")
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export SOURCE_DATE_EPOCH=1605225600  # the logs hold the date

# Left out, each with its reason.
declare -A left_out=(
  [record_steps]="writes a record itself, which is no step"
  [next_files]="the report of a file that is not there stands in quillan.err, and is no step"
  [changed_on_disk]="another program acts in the midst of it, at steps that only look"
)

# Plays a session's input with further arguments, and keeps what it leaves in a folder. The log names the folder of the
# run, which is the same for all.
play() {
  local kept=$1 session=$2 arguments
  shift 2
  mkdir run
  cp -rL "$session/input/." run/
  if [ -f "$session/arguments" ]; then
    read -r -a arguments < "$session/arguments" || true
  else
    arguments=($(cd "$session/input" && ls | grep -iE '\.(avg|xdb)$' | head -n 1))
  fi
  if [ -x "$session/before" ]; then (cd run && "$session/before" "$program" > before.txt 2>&1); fi
  status=0
  export XDG_CONFIG_HOME="$folder/run/config"  # the user's own settings have no say, and are left alone
  (cd run && "$program" "${arguments[@]}" "$@" > output.txt) || status=1
  forget_moment
  [ $status = 0 ] || return 1
  mv run "$kept"
}

# Takes away what tells one run from the next: what ran ahead of a session, which ends with it, journals, which hold
# the time of each edit, and the time in a PDF.
forget_moment() {
  if [ -f run/running ]; then kill "$(cat run/running)" 2> /dev/null || true; fi
  rm -f run/running run/before.txt run/here run/for_good
  find run -name '*.journal' -delete
  find run -iname '*.pdf' -exec sed -i '/^\/CreationDate/d' {} +
}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
played=0
failed=0
for steps in "$sessions"/*/steps.txt; do
  session=$(dirname "$steps")
  name=$(basename "$session")
  [ -z "${left_out[$name]:-}" ] || continue
  played=$((played + 1))
  rm -rf ./*
  # A session that is meant to end in a refusal is recorded up to there, with the Cancels and the close that follow.
  play a "$session" --script "$steps" --record "$folder/record.txt" 2> faults.txt || [ -f "$session/status" ]
  [ -d a ] || mv run a
  if ! play b "$session" --script "$folder/record.txt" || ! diff -r a b; then
    echo "$name: the record does not do what was recorded:"
    cat "$folder/record.txt"
    failed=1
  fi
done
[ "$played" -ge 40 ] || { echo "only $played sessions were played"; exit 1; }
exit "$failed"
