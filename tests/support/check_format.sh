#!/usr/bin/env bash
# Every source file stands as clang-format lays it out. The version is named: each lays out a little differently.
set -eu
cd "$1"
find src tests fuzz bench examples -name '*.h' -o -name '*.cpp' | sort | xargs clang-format-16 --dry-run --Werror
