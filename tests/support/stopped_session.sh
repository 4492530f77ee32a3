#!/usr/bin/env bash
# Plays a session up to the steps `snapshot here` and `snapshot for_good`. Both write to pipes: the first is read, so that
# the moment is known; nobody reads the second, so that the program waits there.
#   stopped_session.sh kill PROGRAM ARGUMENT...   kills the program then
#   stopped_session.sh leave PROGRAM ARGUMENT...  leaves it waiting; the file running holds its process number
set -eu
what=$1
shift
mkfifo here for_good
"$@" > stopped.txt 2>&1 &
echo $! > running
timeout 60 cat here > /dev/null
if [ "$what" = kill ]; then
  kill -9 "$(cat running)"
  rm running here for_good
fi

