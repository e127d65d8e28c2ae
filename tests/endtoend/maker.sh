# vorel-maze: the same seed gives the same maze and picture, files are not replaced unasked, and wrong
# options get one sentence.
. "$(dirname "$0")/lib.sh"
on_windows && desktop_start

"$VOREL_MAZE" --kind nested-twice --side 7 --seed 596 --walk 50 --save a.dat --statistics >first.txt
"$VOREL_MAZE" --load a.dat --statistics >second.txt
cmp first.txt second.txt || fail "the saved session is another tree"
grep -q '^dead ends [1-9]' first.txt || fail "statistics: $(cat first.txt)"

# Two tiles, and both eyes of each.
for picture in a b; do
  "$VOREL_MAZE" --load a.dat --whole --grid --plot balls --stereo 6 --size 4500x300 --picture $picture.png
done
cmp a.png b.png || fail "the second picture is another one"
[ "$(identify -format '%w %h' a.png)" = "4500 300" ] || fail "the size is $(identify a.png)"
[ "$(convert a.png -crop 404x300+4096+0 -format '%[fx:maxima>0.2]' info:)" = 1 ] || fail "the second tile is dark"

# refused STATUS OPTION...: the options are refused in one sentence.
refused() {
  local status=0
  "$VOREL_MAZE" "${@:2}" >out.txt 2>err.txt || status=$?
  [ "$status" -eq "$1" ] && [ "$(grep -c '^vorel-maze: ' err.txt)" -eq 1 ] || fail "status $status at ${*:2}"
}
refused 1 --load a.dat --picture a.png
refused 1 --load none.dat --statistics
refused 1 --kind plane --side 90000 --statistics
for options in --bogus --side "--side 3" "--kind x" "--kind ladder --side 2" "--size 9x" "--seed -1 --statistics" ""; do
  # shellcheck disable=SC2086
  refused 2 $options
done
cmp a.png b.png || fail "a picture was replaced"
"$VOREL_MAZE" --seed 1 --size 40x30 --picture a.png --force --turntable 2
[ -s a-0.png ] && [ -s a-1.png ] || fail "no turntable: $(ls)"
