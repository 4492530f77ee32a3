#!/usr/bin/env bash
# Runs a command in a fresh folder that is gone afterwards.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
"$@"
