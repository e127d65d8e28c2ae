# There and back along a corridor: the picture is the same but for the corridor, which is bright.
. "$(dirname "$0")/lib.sh"
desktop_start
vorel_start
ladder
shot before.png

hold 1.2 Right
hold 3 Left
shot after.png
brighter=$(pixels_brighter before.png after.png)
changed=$(pixels_changed before.png after.png)
[ "$brighter" -ge 100 ] || fail "no corridor turned bright ($brighter pixels)"
# All corridors are thin: what lies elsewhere has come back to its place.
total=$(identify -format '%[fx:w*h]' after.png)
[ "$changed" -lt $((total / 5)) ] || fail "the view did not come back ($changed of $total pixels)"
quit_cleanly
