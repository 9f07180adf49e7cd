#!/bin/sh
# usage: abort_test.sh PROGRAM FOLDER
# Ends a conversion of a file without end by a signal: exit status 3, the older output as it was, nothing else left.
set -u
program=$1
rm -rf "$2" && mkdir "$2" && cd "$2" || exit 1
mkfifo endless.stl
echo old >out.obj
facet='facet normal 0 0 1 outer loop vertex 0 0 0 vertex 1 0 0 vertex 0 1 0 endloop endfacet'
{ echo solid; while echo "$facet"; do :; done; } >endless.stl 2>/dev/null &
"$program" --level BRIEF endless.stl out.obj >said 2>&1 &
pid=$!
# It has begun to write when its temporary file is there.
tries=0
until ls | grep -q KOVATemp; do
  tries=$((tries + 1))
  [ $tries -lt 600 ] || { echo 'it never began'; kill -KILL $pid; exit 1; }
  sleep 0.05
done
kill -TERM $pid
wait $pid
status=$?
left=$(ls | tr '\n' ' ')
[ $status = 3 ] && [ "$left" = 'endless.stl out.obj said ' ] && [ "$(cat out.obj)" = old ] &&
  grep -qx 'Product Aborted' said && exit 0
echo "status $status, files: $left"
cat said
exit 1
