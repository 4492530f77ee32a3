#!/usr/bin/env bash
# The committed example survey is what its generator makes.
#   check_examples.sh GENERATOR FOLDER
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1" "$folder"
diff -r "$folder" "$2"
