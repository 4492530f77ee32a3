#!/usr/bin/env bash
# Plays one session and compares what it leaves with what is expected.
#   play_session.sh PROGRAM FOLDER
# FOLDER holds steps.txt, input/ (copied into a fresh folder, where the program runs), expected/ (each file must come
# out equal), and perhaps arguments (the command line, steps.txt aside; without it the program starts with the one file
# of input/ whose name ends in .avg or .xdb), produced (names of files that must be there and hold something), absent
# (names that must not be there; both may hold * and ?), status (the exit status, 0 without it), holds (lines FILE:TEXT,
# a text that a file must hold), refusal (words that standard error must hold, so that no earlier step is refused
# in place of the one that is meant), and before (a program that is run in the fresh folder ahead of the session, with
# PROGRAM as its argument; what it leaves running is ended with the session when running holds its process number).
set -eu
program=$(realpath "$1")
session=$(realpath "$2")
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export SOURCE_DATE_EPOCH=1605225600  # 2020-11-13, the date in the expected files
folder=$(mktemp -d)
clean_up() {
  if [ -f "$folder/running" ]; then kill "$(cat "$folder/running")" 2> /dev/null || true; fi
  rm -rf "$folder"
}
trap clean_up EXIT
cp -rL "$session/input/." "$folder/"
cd "$folder"
export XDG_CONFIG_HOME="$folder/config"  # the user's own settings have no say, and are left alone
if [ -f "$session/arguments" ]; then
  read -r -a arguments < "$session/arguments" || true
else
  arguments=($(cd "$session/input" && ls | grep -iE '\.(avg|xdb)$' | head -n 1))
fi
if [ -x "$session/before" ]; then "$session/before" "$program" > before.txt 2>&1 || { cat before.txt; exit 1; }; fi
status=0
"$program" "${arguments[@]}" --script "$session/steps.txt" > output.txt 2> errors.txt || status=$?
wanted=$(cat "$session/status" 2>/dev/null || echo 0)
failed=0
if [ "$status" != "$wanted" ]; then
  echo "exit status $status, expected $wanted"
  failed=1
fi
if [ -d "$session/expected" ]; then
  while IFS= read -r file; do
    if ! cmp -s "$session/expected/$file" "$file"; then
      echo "$file is not as expected:"
      diff "$session/expected/$file" "$file" | head -n 20 || true
      failed=1
    fi
  done < <(cd "$session/expected" && find -L . -type f | sort)
fi
if [ -f "$session/produced" ]; then
  while IFS= read -r file; do
    if [ ! -s "$(compgen -G "$file" | head -n 1)" ]; then
      echo "$file is missing or empty"
      failed=1
    fi
  done < "$session/produced"
fi
if [ -f "$session/absent" ]; then
  while IFS= read -r file; do
    if compgen -G "$file" > /dev/null; then
      echo "$file should not be there"
      failed=1
    fi
  done < "$session/absent"
fi
if [ -f "$session/holds" ]; then
  while IFS=: read -r file text; do
    if ! grep -qaF -e "$text" "$file"; then
      echo "$file does not hold: $text"
      failed=1
    fi
  done < "$session/holds"
fi
if [ -f "$session/refusal" ] && ! grep -qF -f "$session/refusal" errors.txt; then
  echo "the refusal is not as expected: $(cat "$session/refusal")"
  failed=1
fi
if [ -n "${KEEP:-}" ]; then cp -r "$folder" "$KEEP"; fi
if [ "$failed" = 1 ]; then
  cat errors.txt
  tail -n 20 output.txt
fi
exit "$failed"
