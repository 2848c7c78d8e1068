#!/bin/sh
# Hands a month in without a window: hand-in.sh INVENTORY.mdb MONTH FOLDER
# Stops while a finding of the month has no explanation; otherwise the survey and the annual summary lie in the folder.
set -eu
inventory=$1
month=$2
folder=$3
merlu=${MERLU:-merlu}

status=0
"$merlu" check "$inventory" --month "$month" > "$folder/findings.txt" || status=$?
if [ $status -ne 0 ]; then
  tail -n 1 "$folder/findings.txt" >&2
  exit $status
fi
"$merlu" export "$inventory" --month "$month" -o "$folder/survey.mdb" --force
"$merlu" report "$inventory" -o "$folder/summary.pdf" --force
