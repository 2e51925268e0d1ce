#!/usr/bin/env bash
# What command_pages says, and its exit status, when it cannot write: command_pages_test.sh PROGRAM
set -u
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/man1"
ln -s /dev/full "$folder/man1/morvane.1"

faults=0
expect() { # STATUS WORDS ARGUMENT...
  local said status
  said=$("$program" "${@:3}" 2>&1)
  status=$?
  [ "$status:$said" = "$1:$2" ] && return
  echo "command_pages ${*:3}: $status:$said" >&2
  faults=$((faults + 1))
}
program=$1
expect 1 "command_pages: $folder/man1/morvane.1 cannot be written" "$folder"
expect 1 "command_pages: /dev/null/man1/morvane.1 cannot be written" /dev/null
expect 2 "Usage: command_pages FOLDER"
expect 2 "Usage: command_pages FOLDER" "$folder" "$folder"
[ "$faults" -eq 0 ]
