#!/usr/bin/env bash
# Runs the built dobj through its main flow on a small recording:
# demo -> info -> stats -> slice -> TIFF and back -> render, then its failure statuses.
set -euo pipefail
dobj=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() { echo "FAIL: $*" >&2; exit 1; }
expect_status() { # status, then the command
  local want=$1; shift
  set +e; "$@" >out.txt 2>err.txt; local got=$?; set -e
  [[ $got == "$want" ]] || fail "$* exited $got, expected $want: $(cat err.txt)"
}

expect_status 0 "$dobj" demo --frames 3 --size 64x48
[[ -s demo.h5 ]] || fail "demo wrote no demo.h5"

"$dobj" info demo.h5 >info.txt
grep -q "demo.h5: 3 frames" info.txt || fail "info: frame count"
grep -q "frames 0-2: image, 64 x 48 x 2, uint16, .* masked out" info.txt || fail "info: layout"
grep -q "CameraMaxIntensity = 4095" info.txt || fail "info: buffer attributes"
grep -q "FrameDt = 250" info.txt || fail "info: frame attributes"

"$dobj" stats demo.h5 --frame 1 >stats.txt
[[ $(grep -c '^ *1 ' stats.txt) == 2 ]] || fail "stats: one line per plane of frame 1"

"$dobj" slice demo.h5 --frame 0 --xz 10 -o xz.h5 >/dev/null
"$dobj" info xz.h5 | grep -q "64 x 2 x 1, uint16" || fail "slice: xz size"

# Buffer -> TIFF -> buffer -> TIFF gives the same TIFF: the pixels survived both ways.
"$dobj" convert demo.h5 demo.tif >/dev/null
"$dobj" convert demo.tif back.h5 >/dev/null
"$dobj" convert back.h5 again.tif >/dev/null
cmp -s demo.tif again.tif || fail "convert: TIFF round trip changed the pixels"
"$dobj" info back.h5 | grep -q "frames 0-2: image, 64 x 48 x 2, uint16" || fail "convert: frames restored"

"$dobj" render demo.h5 --frame 2 --z 1 -o frame.png >/dev/null
# Width and height are the first two big-endian words after the PNG signature and IHDR header.
read -r -a size <<<"$(od -An -tu1 -j16 -N8 frame.png)"
width=$(( (size[0] << 24) | (size[1] << 16) | (size[2] << 8) | size[3] ))
height=$(( (size[4] << 24) | (size[5] << 16) | (size[6] << 8) | size[7] ))
[[ "$width x $height" == "64 x 48" ]] || fail "render: PNG is $width x $height"

expect_status 1 "$dobj" info missing.h5
[[ $(wc -l <err.txt) == 1 && $(head -c 6 err.txt) == "dobj: " ]] || fail "missing file: one dobj: line"
echo "not a buffer" >foreign.h5
expect_status 1 "$dobj" info foreign.h5
expect_status 1 "$dobj" stats demo.h5 --frame 3
expect_status 1 "$dobj" render demo.h5 --z 2 -o x.png
expect_status 1 "$dobj" convert foreign.h5 x.tif
expect_status 2 "$dobj" slice demo.h5 --frame 0 -o x.h5
expect_status 2 "$dobj" frobnicate
echo "dobj end to end: all passed"
