# There and back along a corridor: the picture is the same but for the corridor, which is bright.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
shot before.png

# The first node is the corner of a plane, with a corridor to the right or upwards or both.
hold 0.5 Right
hold 2 Left
shot after.png
if [ "$(pixels_brighter before.png after.png)" -lt 100 ]; then
  hold 0.5 Up
  hold 2 Down
  shot after.png
fi
brighter=$(pixels_brighter before.png after.png)
changed=$(pixels_changed before.png after.png)
[ "$brighter" -ge 100 ] || fail "no corridor turned bright ($brighter pixels)"
# All corridors are thin: what lies elsewhere has come back to its place.
total=$(identify -format '%[fx:w*h]' after.png)
[ "$changed" -lt $((total / 5)) ] || fail "the view did not come back ($changed of $total pixels)"
quit_cleanly
