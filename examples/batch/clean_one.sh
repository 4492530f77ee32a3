#!/usr/bin/env bash
# Plays steps.txt on one data file:  clean_one.sh FILE LOGS
# Each file has a folder of its own under LOGS for the log of its run, so that many can run at once: surveys+line7.avg
# for surveys/line7.avg. The exit status is that of the program: 0 every step was carried out, 3 one did not fit.
set -eu
steps=$(dirname "$(realpath "$0")")/steps.txt
file=$(realpath "$1")
name=${1#./}
logs=$2/${name//\//+}
mkdir -p "$logs"
cd "$logs"
quillan "$file" --script "$steps" > steps.log 2> faults.txt
