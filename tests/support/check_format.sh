#!/usr/bin/env bash
# Every source file stands as clang-format lays it out.
set -eu
cd "$1"
find src tests fuzz bench examples -name '*.h' -o -name '*.cpp' | sort | xargs clang-format --dry-run --Werror
