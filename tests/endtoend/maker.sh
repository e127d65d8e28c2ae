# vorel-maze: the same seed gives the same maze and picture, files are not replaced unasked, wrong options
# get one sentence, and long work shows that it goes on.
. "$(dirname "$0")/lib.sh"
on_windows && desktop_start

"$VOREL_MAZE" --kind nested-twice --side 7 --seed 596 --walk 50 --save a.dat --statistics >first.txt
"$VOREL_MAZE" --load a.dat --statistics >second.txt
cmp first.txt second.txt && grep -q '^dead ends [1-9]' first.txt || fail "the saved session is another tree"

# Two tiles, and both eyes of each.
for picture in a b; do
  "$VOREL_MAZE" --load a.dat --whole --grid --plot balls --stereo 6 --size 4500x300 --picture $picture.png
done
cmp a.png b.png && [ "$(identify -format '%w %h' a.png)" = "4500 300" ] || fail "the pictures: $(identify ./*.png)"
[ "$(convert a.png -crop 404x300+4096+0 -format '%[fx:maxima>0.2]' info:)" = 1 ] || fail "the second tile is dark"

# Walls and skirts of the cells beyond the outermost nodes are in the picture, and fill it.
"$VOREL_MAZE" --kind sphere --side 3 --seed 3 --plot landscape-1 --whole --size 80x60 --picture c.png
[ "$(convert c.png -fuzz 1% -trim -format '%[fx:w<80&&h<60&&(w>70||h>50)]' info:)" = 1 ] || fail "the frame"

# refused STATUS OPTION...: the options are refused in one sentence.
refused() {
  local status=0
  "$VOREL_MAZE" "${@:2}" >out.txt 2>err.txt || status=$?
  [ "$status $(grep -c '^vorel-maze: ' err.txt) $(wc -c <out.txt)" = "$1 1 0" ] || fail "status $status at ${*:2}"
}
for options in "1 --load a.dat --picture a.png" "1 --load none.dat --statistics" \
  "1 --force --seed 1 --size 9x9 --save s-1.png --picture s.png --turntable 2" "1 --kind plane --side 90000 --statistics" \
  2 "2 --bogus" "2 --side" "2 --side 3" "2 --kind x" "2 --kind ladder --side 2" "2 --kind nested --side 4 --statistics" "2 --size 9x" "2 --seed -1 --statistics" \
  "2 --seed 1e3 --statistics" "2 --zoom inf --statistics" "2 --whole --zoom 3 --picture d.png" "2 --save e --picture ./e"; do
  # shellcheck disable=SC2086
  refused $options
done
cmp a.png b.png || fail "a picture was replaced"
"$VOREL_MAZE" --help >/dev/full 2>err.txt && fail "a full device is no failure"
on_windows || ! "$VOREL_MAZE" --help >&- 2>err.txt || fail "a closed output is no failure"
"$VOREL_MAZE" --seed 1 --size 40x30 --picture a.png --force --turntable 2 && [ -s a-0.png ] && [ -s a-1.png ] || fail "no turntable: $(ls)"
status=0 # 137 if the program ignores the signal
on_windows || timeout -k 9 -s INT 2 "$VOREL_MAZE" --kind plane --side 9 --picture b.png --force --turntable 9999 || status=$?
on_windows || [ $status -eq 124 ] || fail "status $status after an interrupt"
on_windows || grep -q walking <(script -qc "'$VOREL_MAZE' --load a.dat --walk 80000000 --statistics" /dev/null) || fail "no progress"
