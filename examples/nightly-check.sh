#!/bin/sh
# Checks every inventory of a folder and keeps what is open: nightly-check.sh FOLDER RESULT.csv
# For a nightly job: silent while all is well; otherwise it says what to look at, and ends with merlu's own status.
set -u
folder=$1
result=$2
merlu=${MERLU:-merlu}

set -- "$folder"/*.mdb
[ -e "$1" ] || { echo "no inventory in $folder" >&2; exit 2; }
"$merlu" check --format csv "$@" > "$result.new"
status=$?
mv "$result.new" "$result"
if [ $status -eq 1 ]; then
  "$merlu" check "$@" | grep ' findings, ' | grep -v ' 0 open, .* 0 stale$'
fi
exit $status
